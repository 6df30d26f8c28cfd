// Journeys through the real windows are seen as the models tell them.

#include "FaceJourney.h"
#include "ProgramTest.h"
#include "platform/Host.h"

namespace qel {
namespace {

class FaceJourneys : public ProgramTest, public testing::WithParamInterface<const char*> {};

TEST_P(FaceJourneys, AreSeenAsTheModelsTellThem) {
  Script script(std::string(QEL_SOURCE_DIR) + "/tests/journeys/" + GetParam() + ".journey");
  FaceJourney journey(script, folder, desktop.Loop, [this]() -> Windows& { return BeAsNew(); });
  try {
    journey.Play();
  } catch (const ProgramEnd&) {  // which the script did not expect
  }
  EXPECT_EQ(journey.Failure(), "");
  EXPECT_EQ(script.Difference(), "");
}

// Left out is what tells of widths and places, which are the layout's here, or goes by the tab key from field
// to option, whose order is the design's.
INSTANTIATE_TEST_SUITE_P(
    All, FaceJourneys,
    testing::Values("about", "another-default-log", "archives", "charts", "choosing-the-period",
                    "clearing-after-an-archive", "clearing-and-purging", "connection-times", "damaged-logs",
                    "ended-rewrites", "ending", "exporting-and-importing", "first-days", "first-report",
                    "holidays", "holidays-gone-by", "long-logs", "no-log", "optimizing", "options",
                    "options-after-damage", "options-cancelled", "options-default-log", "options-mistyped",
                    "pasting-dates", "price-of-a-call", "purging", "purging-by-keyboard", "reading-again",
                    "region-of-the-options", "region-of-the-service", "repair", "repair-that-fails",
                    "saving-the-edited-log", "searching", "service-by-keyboard", "service-editor",
                    "service-new", "service-warnings", "services", "services-beyond-the-most",
                    "services-of-another-program", "services-scan", "services-without-costs",
                    "starting-with-modems", "system-settings", "tariff-mistyped", "tariff-times", "tariffs",
                    "tariffs-damaged", "tariffs-of-a-name", "tariffs-ten", "tips", "viewer",
                    "viewer-settings", "viewing-and-archives", "viewing-without-editing", "warnings",
                    "wizard", "wizard-modems"));

}  // namespace
}  // namespace qel
