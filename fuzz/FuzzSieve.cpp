// Any bytes behind any response strings: the sieve passes nothing that the classifier would take.

#include <algorithm>
#include <cstdint>

#include "modemlog/LogLine.h"
#include "modemlog/SieveVerdict.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qel;
  // Seven strings, each up to a line feed, then the log; its first line tells the date.
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  Responses responses;
  for (auto& response : responses) {
    response = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(rest.size(), response.size() + 1));
  }
  const std::string_view date = rest.substr(0, std::min(DateLength, rest.find('\n')));
  PassedByAll(responses, size % 2 ? rest : "", rest, date);
  return 0;
}
