#include "app/fonts_ahead.h"

#include <gtest/gtest.h>

#include <QDir>
#include <stdexcept>

// What fontconfig knows it keeps until the process has ended.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's own name
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

namespace brontavia {
namespace {

int Threads() {
  return static_cast<int>(QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

TEST(FontsAhead, TheWorkIsDoneHereAndTheOtherThreadHasEnded) {
  const int before = Threads();
  int runs = 0;
  WhileFontsAreRead([&] { ++runs; });
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(Threads(), before);
}

TEST(FontsAhead, WhatTheWorkThrowsPassesThroughOnceTheOtherThreadHasEnded) {
  const int before = Threads();
  EXPECT_THROW(WhileFontsAreRead([] { throw std::runtime_error("work"); }), std::runtime_error);
  EXPECT_EQ(Threads(), before);
}

}  // namespace
}  // namespace brontavia
