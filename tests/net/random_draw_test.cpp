#include "net/random_draw.h"

#include <gtest/gtest.h>

#include <array>

namespace brontavia {
namespace {

TEST(RandomDraw, SeedMultipliesHourMinuteAndSecondEachPlusOne) {
  EXPECT_EQ(RandomDraw::SeedOf(QTime(0, 0, 0)), 1U);
  EXPECT_EQ(RandomDraw::SeedOf(QTime(1, 2, 3)), 2U * 3U * 4U);
  EXPECT_EQ(RandomDraw::SeedOf(QTime(23, 59, 59)), 24U * 60U * 60U);
}

TEST(RandomDraw, SeedDoesNotKnowMilliseconds) {
  EXPECT_EQ(RandomDraw::SeedOf(QTime(10, 20, 30, 1)), RandomDraw::SeedOf(QTime(10, 20, 30, 999)));
}

TEST(RandomDraw, SameSeedDrawsTheSame) {
  RandomDraw one(4711);
  RandomDraw other(4711);
  for (int draw = 0; draw < 100; ++draw) EXPECT_EQ(one.Below(1000), other.Below(1000));
}

TEST(RandomDraw, StaysBelowItsBoundAndReachesEveryNumber) {
  RandomDraw random(1);
  std::array<int, 6> drawn{};
  for (int draw = 0; draw < 6000; ++draw) ++drawn.at(static_cast<std::size_t>(random.Below(6)));
  for (const int times : drawn) EXPECT_NEAR(times, 1000, 150);
}

// A window draws once at the start of its life, so what matters is the first draw over the seeds of a day.
TEST(RandomDraw, FirstDrawIsFairOverTheSecondsOfADay) {
  int clients = 0;
  int seconds = 0;
  for (QTime time(0, 0, 0); seconds < 24 * 60 * 60; time = time.addSecs(7), seconds += 7) {
    clients += RandomDraw(RandomDraw::SeedOf(time)).Below(2);
  }
  const int draws = seconds / 7;
  EXPECT_NEAR(clients, 0.5 * draws, 0.02 * draws);
}

}  // namespace
}  // namespace brontavia
