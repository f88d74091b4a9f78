// main of tests that need an event loop but no screen.
#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char* argv[]) {
  // GLib's event dispatcher does not deliver events that are queued already inside a loop that nothing else wakes. A
  // screen always wakes it; without one, Qt's own dispatcher stands in.
  qputenv("QT_NO_GLIB", "1");
  const QCoreApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
