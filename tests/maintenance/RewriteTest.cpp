// What the tools make of a log and of the files around it, told by rewrites.tools; below, what no line can
// say.
#include <map>
#include <sys/stat.h>
#include <unistd.h>

#include "core/Surroundings.h"
#include "journeys/Script.h"
#include "maintenance/Optimize.h"
#include "maintenance/Purge.h"
#include "maintenance/Repair.h"
#include "support/ErrorOf.h"
#include "support/FreshProgram.h"
#include "support/Listener.h"
#include "support/Text.h"

namespace qel {

class RewriteTest : public FreshProgram {
 protected:
  RewriteTest() {
    ::umask(022);
    places.AppPath = folder.Path();
  }

  void Open(const std::string& text) {
    folder.Empty();
    log = text;
    OpenLog(log);
    logFile.ArchiveOpen = false;
  }
  // Between the passes of which the log may become another one.
  void Repair(const std::optional<std::string>& another = {}) {
    const LogInHand log = session->InHand();
    LogRepair repair(log, listener);
    repair.FixCorruption();
    EXPECT_EQ(CurrentSurroundings().ProcedureTrace, "FixCorruption");
    EXPECT_EQ(host.pointer, MousePointer::Default);
    if (another) folder.Put("test.log", *another);
    findings.LogLength = 7;
    repair.CheckEntries();
  }

  // The log goes by another name, or by a link too.
  void Rename(const std::string& name) {
    const std::string path = folder.Path(name);
    name == "link" ? std::filesystem::create_symlink(logFile.CurrentLogPath, path)
                   : std::filesystem::rename(logFile.CurrentLogPath, path);
    logFile.CurrentLogPath = path;
  }

  void Run(const Act& act) {
    const std::string& tool = act.Words[0];
    const LogInHand log = session->InHand();
    if (tool == "purge") return DoPurge(log, Jan(act.Word(1)), Jan(act.Word(2)));
    if (tool == "optimize") return DoOptimize(log, settings, logFile.ArchiveOpen);
    std::optional<std::string> another;
    if (act.Words.size() > 1) another = Unfolded(act.Word(1));
    try {
      Repair(another);
    } catch (const RunTimeError& error) {
      listener.WorkFailed(WhyItFailed(error) + ", " + std::to_string(error.Number()));
    }
  }
  static Date Jan(const std::string& day) { return DateSerial(1999, 1, std::stoi(day)); }

  // A long one is told by its length.
  std::string Told(const std::string& text) const {
    if (text == log) return "as it was";
    if (text.empty()) return "empty";
    return text.size() > 1000 ? std::to_string(text.size()) + " bytes" : Folded(text);
  }
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
      const std::string name = entry.path().filename();
      std::ostringstream mode;
      mode << std::oct << static_cast<int>(entry.status().permissions());
      files[name] = (entry.is_symlink()    ? " (link)"
                     : mode.str() == "644" ? ""
                                           : " (" + mode.str() + ")") +
                    ": " + Told(folder.Content(name));
    }
    files.erase(LockName);
    return files;
  }

  void Play(Act& act) {
    const std::string& what = act.Words[0];
    if (what == "log") return Open(Unfolded(act.Word(1), std::stoi(act.WordOr(2, "1"))));
    if (what == "mode")
      return std::filesystem::permissions(logFile.CurrentLogPath, std::filesystem::perms{0664});
    if (what == "archive") return void(logFile.ArchiveOpen = true);
    if (what == "entries") return void(findings.LogEntries = std::stof(act.Word(1)));
    if (what == "file") return folder.Put(act.Word(1), Unfolded(act.Word(2)));
    if (what == "named") return Rename(act.Word(1));
    LineReader left(logFile.CurrentLogPath);
    std::string_view line;
    int yields = 0;
    const Meanwhile<std::function<void()>> counted(host.yielded, [&yields] { ++yields; });
    host.pointer = MousePointer::Hourglass;
    host.messages.clear();
    listener.said.clear();
    Run(act);
    act.Now = listener.said;
    if (yields > 0) act.Now.push_back("yields " + std::to_string(yields));
    for (const Message& message : host.messages) act.Now.push_back("message: " + message.Title);
    act.Now.push_back("at " + CurrentSurroundings().ProcedureTrace +
                      (host.pointer == MousePointer::Default ? "" : ", hourglass"));
    for (const auto& [name, content] : Files()) act.Now.push_back(name + content);
    if (ErrorOf([&] { left.Next(line); }) == 0) act.Now.push_back("what others have open stays so");
  }

  Listener listener;
  const Meanwhile<Display*> here{CurrentSurroundings().Display, &listener};
  std::string log;  // as it was opened
};

TEST_F(RewriteTest, EachToolKeepsWhatItHasToAndASafetyCopy) {
  ExpectScript("maintenance/rewrites.tools", [this](Act& act) { Play(act); });
}

TEST_F(RewriteTest, AReasonIsALineForTheUser) {
  EXPECT_EQ(ReasonOfFailure([] {}), "");
  EXPECT_EQ(ReasonOfFailure([] { throw std::bad_alloc(); }), "Out of memory");
  EXPECT_EQ(ReasonOfFailure([] { RemoveFile("/none"); }), "/none: No such file or directory");
}

TEST_F(RewriteTest, ALogIsWrittenAnewOnlyWhereNobodyHasSeenOne) {
  const std::string path = folder.Path("new.txt");
  EXPECT_EQ(ErrorOf([&] { WriteLog(path, "text", FileStamp()); }), FileNotFound);
  WriteLog(path, "text");
  EXPECT_EQ(folder.Content("new.txt"), "text");
}

TEST_F(RewriteTest, TheLogStaysItsOwners) {
  Open("01-05-1999 a|");
  const uid_t owner = geteuid() == 0 ? 1234 : geteuid();  // root alone may give files away
  ASSERT_EQ(::chown(logFile.CurrentLogPath.c_str(), owner, static_cast<gid_t>(-1)), 0);
  DoPurge(session->InHand(), Jan("5"), Jan("5"));
  struct stat now {};
  EXPECT_EQ(::stat(logFile.CurrentLogPath.c_str(), &now), 0);
  EXPECT_EQ(now.st_uid, owner);
}

}  // namespace qel
