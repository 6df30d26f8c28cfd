// Each journey is a test of its own. With QEL_ACCEPT=1 the journeys are written anew with what was seen.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "core/Surroundings.h"
#include "journeys/Journey.h"
#include "registry/RegistryStore.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

class JourneyTest : public WindowTest {
 public:
  explicit JourneyTest(std::string path) : path(std::move(path)) {}

  void TestBody() override {
    Script script(path);
    std::string failure;
    try {
      Play(script);
    } catch (const std::exception& error) {
      failure = error.what();
    }
    if (std::getenv("QEL_ACCEPT") != nullptr) script.Accept();
    EXPECT_EQ(failure, "") << path;
    EXPECT_EQ(script.Difference(), "");
  }

 protected:
  virtual void Play(Script& script) {
    Journey(script, folder, [this]() -> Windows& { return NewProcess(); }).Play();
  }

  const std::string path;
};

// The errors from one act on are answered in turns, over and over; those before it are told, and other
// questions answered by their first button.
class HinderedJourney : public Journey {
 public:
  HinderedJourney(Script& script, const TemporaryFolder& folder, std::function<qel::Windows&()> newProcess,
                  std::size_t from, std::vector<Answer> turns)
      : Journey(script, folder, std::move(newProcess)), from(from), turns(std::move(turns)) {}
  using Journey::DiskFailed;

  std::vector<std::string> Errors;

 private:
  Answer ErrorBox(const RunTimeError& error, const Message& message) override {
    if (message.Title == error.Source() + " - Error") return Answer::Abort;  // the second answer counts
    const Surroundings& here = CurrentSurroundings();
    const std::string text = here.ModuleTrace + "." + here.ProcedureTrace + ", " + Shortened(here.StepTrace) +
                             ": " + error.Description();
    if (NextAct() <= from) return Tell("ignored: " + text), Answer::Ignore;
    Errors.push_back(text);
    return turns[(Errors.size() - 1) % turns.size()];
  }
  void SetClipboardText(const std::string& /*text*/) override {}  // the errors' report
  std::string AnswerTo(const Message& /*message*/, const std::vector<std::string>& possible) override {
    return possible.front();
  }

  const std::size_t from;
  const std::vector<Answer> turns;
};

// A journey with errors in its way. Below "each failure" is told what becomes of the act behind it where an
// operation of the disk fails, one after the other; below "each answer", which errors it meets by itself, and
// what becomes of it where one of them ends the program. Roads that are alike are told once. A statement that
// works when it is repeated leaves no trace, one that never works leaves what one failure does.
class RoadTest : public JourneyTest {
  using JourneyTest::JourneyTest;
  using Lines = std::vector<std::string>;
  struct Outcome {
    Lines Errors, Now;
    bool Met;
  };

  void Play(Script& script) override {
    Run(script, script.Acts().size(), {Answer::Ignore});
    for (std::size_t at = 0; at < script.Acts().size(); ++at)
      if (Act& act = script.Acts()[at]; act.Words[0] == "each") act.Now = Road(at, act.Word(1) == "failure");
  }

  Lines Road(std::size_t at, bool onDisk) {
    const Outcome undisturbed = Hindered(at, 0, {Answer::Ignore});
    EXPECT_EQ(undisturbed.Errors.empty(), onDisk);
    std::set<Lines> told;
    Lines all;
    for (int operation = onDisk;; ++operation) {
      const Outcome passedOver = Hindered(at, operation, {Answer::Ignore});
      if (onDisk && !passedOver.Met) return all;
      Lines road = passedOver.Errors;
      Tell("  + ", Without(passedOver.Now, undisturbed.Now), road);
      Tell("  - ", Without(undisturbed.Now, passedOver.Now), road);
      if (!passedOver.Errors.empty()) {
        EXPECT_EQ(Hindered(at, operation, {Answer::Retry, Answer::Retry, Answer::Ignore}).Now,
                  undisturbed.Now)
            << road.front() << ", operation " << operation;
      }
      if (!told.insert(road).second) continue;
      Tell("", road, all);
      for (std::size_t n = 0; n < passedOver.Errors.size(); ++n) {
        std::vector<Answer> turns(n, Answer::Ignore);
        turns.push_back(Answer::Abort);
        const Lines end = Without(Hindered(at, operation, turns).Now, undisturbed.Now);
        if (told.insert(end).second) Tell("  Abort: ", end, all);
      }
      if (!onDisk) return all;
    }
  }

  // The journey as far as the act in question, and what is shown behind it.
  Outcome Hindered(std::size_t at, int operation, const std::vector<Answer>& turns) {
    Script script(path);
    std::size_t end = at + 2;
    while (end < script.Acts().size() && script.Acts()[end].Words[0] == "show") ++end;
    script.Acts().resize(end);
    if (operation > 0) script.Acts()[at].Words = {"disk", "full", std::to_string(operation)};
    return Run(script, at + 1, turns);
  }

  Outcome Run(Script& script, std::size_t from, const std::vector<Answer>& turns) {
    folder.Empty();
    HinderedJourney journey(
        script, folder, [this]() -> Windows& { return NewProcess(); }, from, turns);
    journey.Play();
    windows.reset();
    Outcome outcome{journey.Errors, {}, journey.DiskFailed()};
    for (std::size_t act = from; act < script.Acts().size(); ++act)
      Tell("", script.Acts()[act].Now, outcome.Now);
    return outcome;
  }

  static Lines Without(Lines lines, const Lines& others) {
    std::erase_if(lines, [&](const std::string& line) { return std::ranges::count(others, line) > 0; });
    return lines;
  }

  static void Tell(const char* mark, const Lines& lines, Lines& road) {
    for (const std::string& line : lines) road.push_back(mark + line);
  }
};

}  // namespace
}  // namespace qel

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (const auto& entry : std::filesystem::directory_iterator(QEL_SOURCE_DIR "/tests/journeys")) {
    const bool isRoad = entry.path().extension() == ".road";
    if (!isRoad && entry.path().extension() != ".journey") continue;
    const std::string path = entry.path().string();
    std::string name = entry.path().stem().string();
    std::replace(name.begin(), name.end(), '-', '_');  // a hyphen in a filter begins what is left out
    testing::RegisterTest(isRoad ? "Road" : "Journey", name.c_str(), nullptr, nullptr, path.c_str(), 1,
                          [path, isRoad]() -> testing::Test* {
                            if (isRoad) return new qel::RoadTest(path);
                            return new qel::JourneyTest(path);
                          });
  }
  return RUN_ALL_TESTS();
}
