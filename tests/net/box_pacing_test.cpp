#include "net/box_pacing.h"

#include <gtest/gtest.h>

namespace brontavia {
namespace {

using namespace std::chrono_literals;

constexpr BoxPacing::Moment kStart = 1h;

BoxPacing AfterThreeBoxes() {
  BoxPacing pacing(1s);
  for (int box = 0; box < BoxPacing::kMostInARow; ++box) {
    EXPECT_TRUE(pacing.MayOpen(kStart, box > 0)) << "box " << box;
    pacing.Opens();
  }
  return pacing;
}

TEST(BoxPacing, AFewBoxesOpenOneOverTheOther) { EXPECT_FALSE(AfterThreeBoxes().MayOpen(kStart, true)); }

TEST(BoxPacing, TheNextWaitsUntilTheWindowHasBeenFreeForASecond) {
  BoxPacing pacing = AfterThreeBoxes();
  pacing.BecameFree(kStart + 5s);
  EXPECT_FALSE(pacing.MayOpen(kStart + 5s + 999ms, false));
  EXPECT_TRUE(pacing.MayOpen(kStart + 6s, false));
}

TEST(BoxPacing, AWindowThatShowsABoxIsNotFreeHoweverLongItHasBeen) {
  BoxPacing pacing = AfterThreeBoxes();
  pacing.BecameFree(kStart + 5s);
  EXPECT_FALSE(pacing.MayOpen(kStart + 60s, true));
}

TEST(BoxPacing, AfterTheBreakAFewMayOpenAgain) {
  BoxPacing pacing = AfterThreeBoxes();
  pacing.BecameFree(kStart);
  ASSERT_TRUE(pacing.MayOpen(kStart + 1s, false));
  pacing.Opens();
  EXPECT_TRUE(pacing.MayOpen(kStart + 1s, true));
  pacing.Opens();
  EXPECT_TRUE(pacing.MayOpen(kStart + 1s, true));
  pacing.Opens();
  EXPECT_FALSE(pacing.MayOpen(kStart + 1s, true));
}

TEST(BoxPacing, WhatTheUserDoesBeginsANewRow) {
  BoxPacing pacing = AfterThreeBoxes();
  pacing.UserActed();
  EXPECT_TRUE(pacing.MayOpen(kStart, true));
}

}  // namespace
}  // namespace brontavia
