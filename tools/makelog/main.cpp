// makelog: writes modem logs of any size, for tests, measurements and the sample.
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "makelog/LogOptions.h"
#include "makelog/WriteLog.h"

namespace {

void WriteTo(const qel::LogOptions& options) {
  if (options.Output.empty()) return qel::WriteLog(options, std::cout);
  std::ofstream file(options.Output, std::ios::binary);
  if (!file) throw std::runtime_error("cannot open " + options.Output);
  qel::WriteLog(options, file);
  file.close();
  if (!file) throw std::runtime_error("cannot write " + options.Output);
}

}  // namespace

// Status 0: written; 1: not written, or not whole; 2: wrong arguments.
int main(int count, char** arguments) try {
  std::ios::sync_with_stdio(false);
  const qel::LogOptions options = qel::ParseOptions({arguments + 1, arguments + count});
  if (options.Help) {
    std::cout << qel::UsageText;
  } else {
    WriteTo(options);
  }
  return 0;
} catch (const std::invalid_argument& error) {
  std::cerr << "makelog: " << error.what() << "\nTry makelog --help.\n";
  return 2;
} catch (const std::exception& error) {
  std::cerr << "makelog: " << error.what() << '\n';
  return 1;
}
