// main of tests that need windows; the offscreen platform stands in for a screen.
#include <gtest/gtest.h>

#include <QApplication>

#include "ui/accessibility.h"

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  brontavia::InstallAccessibility();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
