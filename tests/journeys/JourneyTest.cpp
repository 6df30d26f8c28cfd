// Each journey is a test of its own. With QEL_ACCEPT=1 the journeys are written anew with what was seen.

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "journeys/Journey.h"
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
      Journey(script, folder, [this] { BeAsNew(); }).Play();
    } catch (const std::exception& error) {
      failure = error.what();
    }
    ResetWindows();
    if (std::getenv("QEL_ACCEPT") != nullptr) script.Accept();
    EXPECT_EQ(failure, "") << path;
    EXPECT_EQ(script.Difference(), "");
  }

 private:
  static void BeAsNew() {
    ResetWindows();
    Registry.Reset();
    ResetProgram();
    ResetModems();
  }

  const std::string path;
};

}  // namespace
}  // namespace qel

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (const auto& entry : std::filesystem::directory_iterator(QEL_SOURCE_DIR "/tests/journeys")) {
    if (entry.path().extension() != ".journey") continue;
    const std::string path = entry.path().string();
    std::string name = entry.path().stem().string();
    std::replace(name.begin(), name.end(), '-', '_');  // a hyphen in a filter begins what is left out
    testing::RegisterTest("Journey", name.c_str(), nullptr, nullptr, path.c_str(), 1,
                          [path]() -> testing::Test* { return new qel::JourneyTest(path); });
  }
  return RUN_ALL_TESTS();
}
