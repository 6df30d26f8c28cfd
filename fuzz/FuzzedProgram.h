// The program as the fuzzers run it: a disk in memory, and nobody there who reads messages or answers them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/Surroundings.h"
#include "platform/Host.h"
#include "session/Session.h"
#include "support/FailingDisk.h"
#include "support/MemoryDisk.h"

namespace qel {

// Goes on behind every error.
class QuietHost : public Host, public Display {
 public:
  Answer MessageBox(const Message& message) override {
    return message.buttons == Buttons::AbortRetryIgnore ? Answer::Ignore : Answer::OK;
  }
};

// One a process. United States, the default settings, a service with a tariff, today is 15 January 1999.
class FuzzedProgram {
 public:
  FuzzedProgram();

  // Makes this the current log, and nothing else on the disk.
  void OpenLog(std::string_view log);

  // The settings that it begins with.
  void SetDefaults();

  // Looks into the log, sets the period to all of it but some days at either end, and analyses. False where
  // no report can be made.
  bool AnalyseAll(int firstDay = 0, int lastDay = 0);

  // The latest analysis in one of the forms that a report has: text, export, page, of either kind.
  static constexpr std::size_t ReportForms = 10;
  std::string ReportIn(std::size_t form);

  qel::Session Session;
  MemoryDisk Memory;
  FailingDisk Disk{Memory};

 private:
  QuietHost host;
  const Surroundings around{host, host};
  DiskInPlace inPlace{Disk};
};

// Runs what may end in a run-time error or with the end of the program, but in nothing else.
void Run(const std::function<void()>& work);

// The bytes of an input, handed out one by one to what is made from them; then zeros.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : bytes(reinterpret_cast<const char*>(data), size) {}

  bool AtEnd() const { return bytes.empty(); }
  std::string_view Rest() const { return bytes; }
  // 0 to `limit` - 1, of at most 256.
  unsigned Below(unsigned limit);
  template <typename T, std::size_t N>
  T OneOf(const T (&values)[N]) {
    return values[Below(N)];
  }

 private:
  std::string_view bytes;
};

// Ends the process with a word on the rule that does not hold.
void Check(bool holds, const char* rule);

}  // namespace qel
