#include <QApplication>
#include <gtest/gtest.h>

#include "desktop/Look.h"

int main(int count, char** words) {
  ::testing::InitGoogleTest(&count, words);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // which needs no display
  QApplication application(count, words);
  QApplication::setQuitOnLastWindowClosed(false);
  qel::ApplyLook();
  return RUN_ALL_TESTS();
}
