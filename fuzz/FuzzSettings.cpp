// Any bytes as a registry file: it is read or refused, and what was read comes back the same after it was
// written.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "registry/RegistryText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const auto tree = qel::ParseRegistryFile({reinterpret_cast<const char*>(data), size});
    if (qel::ParseRegistryFile(qel::WriteRegistryFile(tree)) != tree) std::abort();
  } catch (const qel::RegistryFileError&) {
  }
  return 0;
}
