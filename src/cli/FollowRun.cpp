#include "cli/FollowRun.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <optional>
#include <poll.h>
#include <pthread.h>
#include <sys/signalfd.h>
#include <unistd.h>
#include <utility>

#include "analysis/FollowedLog.h"
#include "cli/CommandLineHost.h"
#include "cli/LogSelection.h"
#include "cli/ReportOutput.h"
#include "platform/FileWatch.h"
#include "reports/DetailLines.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// From here on a signal that ends the program is word of it and nothing more.
class EndOfRun {
 public:
  EndOfRun() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, &before);
    handle = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
  }
  ~EndOfRun() {
    close(handle);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
  }
  EndOfRun(const EndOfRun&) = delete;
  EndOfRun& operator=(const EndOfRun&) = delete;

  // Waits for word of the log, for a while at most. Whether the end has come.
  bool WaitFor(FileWatch& watch) const {
    constexpr int milliseconds = 1000;
    std::array<pollfd, 3> polled = {
        {{handle, POLLIN, 0}, {STDOUT_FILENO, 0, 0}, {watch.Handle(), POLLIN, 0}}};
    poll(polled.data(), polled.size(), milliseconds);
    watch.TakeWord();
    signalfd_siginfo signal;
    const bool ended = read(handle, &signal, sizeof signal) > 0;  // and the signal is taken
    return ended || (polled[1].revents & POLLERR);
  }

 private:
  sigset_t before{};
  int handle;
};

class Following {
 public:
  Following(const Session& session, const Arguments& arguments)
      : settings(session.settings),
        path(session.logFile.CurrentLogPath),
        format(arguments.format),
        log(settings, path, arguments.from.value_or(0)) {}

  ExitStatus Run();

 private:
  void ReadOn();
  void TellLost(const std::string& why);
  bool PrintClosed();
  bool IsQuiet() const { return Clock::now() - grown >= Patience; }

  using Clock = std::chrono::steady_clock;
  // Drivers write the counts of a call in one go, right behind it; and what replaces a log may leave its name
  // empty for an instant.
  static constexpr std::chrono::seconds Patience{2};

  const Settings& settings;
  const std::string path;
  const OutputFormat format;
  FollowedLog log;
  Int32 entries;            // when it was read last
  Clock::time_point grown;  // the last time
  std::optional<Clock::time_point> lost;
  bool lossTold = false;
};

void Following::TellLost(const std::string& why) {
  if (!lost) lost = Clock::now();
  if (Clock::now() - *lost >= Patience && !std::exchange(lossTold, true))
    Complain(ShownPath(path) + ": " + why + "; it is waited for");
}

void Following::ReadOn() {
  try {
    for (auto found = log.ReadOn(); found != FileTail::Found::Same; found = log.ReadOn())
      Complain(ShownPath(path) +
               (found == FileTail::Found::Shrunk ? ": the log has shrunk" : ": the log was replaced") +
               "; it is followed from its beginning");
    lost.reset();
    lossTold = false;
  } catch (const RunTimeError& error) {
    TellLost(error.SystemError() == ENOENT ? "the log is gone" : "cannot read the log: " + ReasonOf(error));
  }
  if (log.TakeUndated()) Complain(ShownPath(path) + ": an entry has no date and is passed over");
  if (entries != log.Result().EntriesProcessed) grown = Clock::now();
  entries = log.Result().EntriesProcessed;
}

// False where nothing can be written any more.
bool Following::PrintClosed() {
  Int16 last = log.LastClosed();
  if (log.MayGainData(last) && !IsQuiet()) --last;
  if (last < log.FirstUntold()) return true;
  AnalysisResult result = log.Result();
  std::string text;
  ForEachConnection({result, settings, log.FollowedPeriod()}, [&](const DetailLine& line) {
    if (line.Index >= log.FirstUntold() && line.Index <= last)
      text += WrittenConnection(settings, line, format);
  });
  log.Told(last);
  return text.empty() || WriteOut(text, std::nullopt);
}

ExitStatus Following::Run() {
  const EndOfRun end;
  FileWatch watch(path);
  ReadOn();
  log.Told(log.LastClosed());
  const std::string above = LineAboveConnections(settings, format);
  if (!above.empty() && !WriteOut(above, std::nullopt)) return NoReport;
  for (bool atEnd = false; !atEnd && !log.LimitReached();) {
    atEnd = end.WaitFor(watch);
    ReadOn();
    if (atEnd) grown = {};  // no more is waited for
    if (!PrintClosed()) return NoReport;
  }
  return log.LimitReached() ? IncompleteReport : WholeReport;
}

}  // namespace

ExitStatus RunFollowing(Session& session, const Arguments& arguments) {
  if (!SelectLogToFollow(session, arguments.log)) return NoReport;
  TellUnknownDays(session.settings);
  return Following(session, arguments).Run();
}

}  // namespace qel
