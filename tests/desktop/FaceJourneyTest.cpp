// Journeys through the real windows are seen as the models tell them.

#include "FaceJourney.h"
#include "ProgramTest.h"
#include "core/EndProgram.h"

namespace qel {
namespace {

// The program's clockwork stands still, as it does for the models.
void AttachFacesWithoutTicks() {
  AttachFaces(ProgramWindows());
  AttachFace = [attach = AttachFace](Form& form) {
    constexpr int AnHour = 3'600'000;
    for (Control* control : form.Controls())
      if (auto* timer = dynamic_cast<Timer*>(control)) timer->Interval = AnHour;
    attach(form);
  };
}

class FaceJourneys : public WindowTest, public testing::WithParamInterface<const char*> {
 protected:
  ~FaceJourneys() override {
    ReleaseFaces();
    ResetWindows();
    AttachFace = nullptr;
    ResetEventLoop();
  }
  static void BeAsNew() {
    ReleaseFaces();
    ResetWindows();
    ResetEventLoop();
    Registry.Reset();
    ResetProgram();
    ResetModems();
    AttachFacesWithoutTicks();
  }
};

TEST_P(FaceJourneys, AreSeenAsTheModelsTellThem) {
  Script script(std::string(QEL_SOURCE_DIR) + "/tests/journeys/" + GetParam() + ".journey");
  FaceJourney journey(script, folder, BeAsNew);
  try {
    journey.Play();
  } catch (const ProgramEnd&) {  // which the script did not expect
  }
  EXPECT_EQ(journey.Failure(), "");
  EXPECT_EQ(script.Difference(), "");
}

INSTANTIATE_TEST_SUITE_P(All, FaceJourneys,
                         testing::Values("about", "archives", "choosing-the-period", "clearing-and-purging",
                                         "damaged-logs", "first-report", "holidays", "no-log", "options",
                                         "service-editor", "tariffs", "viewer"));

}  // namespace
}  // namespace qel
