#include <QApplication>
#include <gtest/gtest.h>

#include "desktop/Look.h"

// Asked by the leak checker: caches that font and platform libraries keep until the process ends.
extern "C" const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\nleak:libQt6Gui\nleak:libQt6XcbQpa\n";
}

int main(int count, char** words) {
  ::testing::InitGoogleTest(&count, words);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // which needs no display
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(count, words);
  QApplication::setQuitOnLastWindowClosed(false);
  qel::ApplyLook();
  return RUN_ALL_TESTS();
}
