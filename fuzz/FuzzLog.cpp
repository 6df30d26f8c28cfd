// Any bytes as a modem log: statistics, analysis and all forms of both reports come to an end without a
// crash.

#include "FuzzedProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static qel::FuzzedProgram program;
  program.OpenLog({reinterpret_cast<const char*>(data), size});
  qel::Run([size] {
    if (program.AnalyseAll()) program.ReportIn(size);  // inputs of other lengths see the other forms
  });
  return 0;
}
