#include "net/random_draw.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

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

std::vector<int> Draws(const RandomSeed& seed) {
  RandomDraw random(seed);
  std::vector<int> draws;
  while (draws.size() < 8) draws.push_back(random.Below(1000));
  return draws;
}

// So that a game which failed with a seed can be played again.
TEST(RandomDraw, AFixedSeedDrawsTheSameForEver) {
  EXPECT_EQ(Draws(1), (std::vector<int>{997, 932, 128, 999, 236, 396, 387, 669}));
  EXPECT_EQ(Draws(4711), (std::vector<int>{101, 583, 440, 67, 220, 600, 938, 192}));
}

TEST(RandomDraw, ASecretChangesWhatATimeDraws) {
  constexpr RandomSeed::SecretWords kSecret{1, 2, 3, 4, 5, 6, 7, 8};
  constexpr RandomSeed::SecretWords kAnother{1, 2, 3, 4, 5, 6, 7, 9};
  EXPECT_EQ(Draws({4711, kSecret}), Draws({4711, kSecret}));
  EXPECT_NE(Draws({4711, kSecret}), Draws({4711, kAnother}));
  EXPECT_NE(Draws({4711, kSecret}), Draws({4712, kSecret}));
  EXPECT_NE(Draws({4711, RandomSeed::SecretWords{}}), Draws(4711));
}

TEST(RandomDraw, WindowsThatLoadInTheSameSecondDrawDifferently) {
  RandomSeed one = SeedOfWindow();
  RandomSeed other = SeedOfWindow();
  EXPECT_GE(one.Time, 1U);
  EXPECT_LE(one.Time, 24U * 60U * 60U);
  one.Time = other.Time;
  EXPECT_NE(Draws(one), Draws(other));
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
