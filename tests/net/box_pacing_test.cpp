#include "net/box_pacing.h"

#include <gtest/gtest.h>

namespace brontavia {
namespace {

BoxPacing AfterThreeBoxes() {
  BoxPacing pacing;
  for (int box = 0; box < BoxPacing::kMostInARow; ++box) {
    EXPECT_TRUE(pacing.MayOpen()) << "box " << box;
    pacing.Opens();
  }
  return pacing;
}

TEST(BoxPacing, AFewBoxesOpenOneOverTheOther) { EXPECT_FALSE(AfterThreeBoxes().MayOpen()); }

TEST(BoxPacing, AfterARestAFewMayOpenAgain) {
  BoxPacing pacing = AfterThreeBoxes();
  pacing.Rested();
  for (int box = 0; box < BoxPacing::kMostInARow; ++box) {
    EXPECT_TRUE(pacing.MayOpen()) << "box " << box;
    pacing.Opens();
  }
  EXPECT_FALSE(pacing.MayOpen());
}

TEST(BoxPacing, WhatTheUserDoesBeginsANewRow) {
  BoxPacing pacing = AfterThreeBoxes();
  pacing.UserActed();
  EXPECT_TRUE(pacing.MayOpen());
}

}  // namespace
}  // namespace brontavia
