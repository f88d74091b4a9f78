#include "games/chess/chess_clock.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

ChessClock At(int white, int black) {
  ChessClock clock;
  clock.Tick(Colour::White, white);
  clock.Tick(Colour::Black, black);
  return clock;
}

TEST(ChessClock, BeginsAtZero) {
  const ChessClock clock;
  EXPECT_EQ(clock.Text(), u"00:00 / 00:00");
}

TEST(ChessClock, CountsTheSecondsOfTheSideToMove) {
  ChessClock clock;
  clock.Tick(Colour::White, 1);
  clock.Tick(Colour::Black, 2);
  EXPECT_EQ(clock.ClockSeconds(Colour::White), 1);
  EXPECT_EQ(clock.ClockSeconds(Colour::Black), 2);
  EXPECT_EQ(clock.Text(), u"00:01 / 00:02");
}

TEST(ChessClock, ShowsMinutesAndSecondsOfBothSides) {
  EXPECT_EQ(At(65, 3600).Text(), u"01:05 / 60:00");
  EXPECT_EQ(At(59, 60).Text(), u"00:59 / 01:00");
  EXPECT_EQ(At(5999, 6000).Text(), u"99:59 / 100:00");
}

TEST(ChessClock, IsReset) {
  ChessClock clock = At(5, 7);
  clock.Reset();
  EXPECT_EQ(clock.Text(), u"00:00 / 00:00");
}

// ---- Setting ----

TEST(ChessClock, ProposesItsTimesWithoutPadding) {
  const ChessClock clock = At(307, 3600);
  EXPECT_EQ(clock.Proposal(Colour::White), u"5:7");
  EXPECT_EQ(clock.Proposal(Colour::Black), u"60:0");
}

TEST(ClockEntry, IsReadByTheLeadingNumberRule) {
  struct {
    std::u16string_view Answer;
    int Minutes;
    int Seconds;
  } const cases[] = {{u"5:7", 5, 7},
                     {u"05:07", 5, 7},
                     {u"1 2 : 3 4", 12, 34},
                     {u":30", 0, 30},
                     {u"5:", 5, 0},
                     {u":", 0, 0},
                     {u"5:7:99", 5, 7},
                     {u"5x:7y", 5, 7},
                     {u"2.5:59.4", 2, 59},
                     {u"3.5:0.5", 4, 0},
                     {u"-5:-3", -5, -3},
                     {u"a:b", 0, 0},
                     {u"99999999999:1", 2147483647, 1}};
  for (const auto& tested : cases) {
    const auto time = ReadClockTime(tested.Answer);
    ASSERT_TRUE(time) << Narrow(tested.Answer);
    EXPECT_EQ(time->Minutes, tested.Minutes) << Narrow(tested.Answer);
    EXPECT_EQ(time->Seconds, tested.Seconds) << Narrow(tested.Answer);
  }
}

TEST(ClockEntry, IsRefusedWithoutColonOrWithAFullMinute) {
  for (const std::u16string_view answer : {u"", u"5", u"5.75", u"5:75", u"5:60", u"5:59.5", u"0:99999999999"}) {
    EXPECT_FALSE(ReadClockTime(answer)) << Narrow(answer);
  }
}

TEST(ChessClock, TakesBothTimes) {
  ChessClock clock = At(1, 2);
  EXPECT_TRUE(clock.Set({.Minutes = 5, .Seconds = 7}, {.Minutes = 60}));
  EXPECT_EQ(clock.ClockSeconds(Colour::White), 307);
  EXPECT_EQ(clock.ClockSeconds(Colour::Black), 3600);
  EXPECT_EQ(clock.Text(), u"05:07 / 60:00");
}

TEST(ChessClock, TakesNoTimeBeyondSixteenBits) {
  constexpr ClockTime kHighest{.Minutes = 546, .Seconds = 7};  // 32767 seconds
  constexpr ClockTime kTooMuch[] = {{.Minutes = 546, .Seconds = 8},   {.Minutes = 547, .Seconds = -60},
                                    {.Minutes = 2147483647},          {.Minutes = -546, .Seconds = -9},
                                    {.Minutes = -547, .Seconds = 59}, {.Seconds = -2147483647}};
  ChessClock clock = At(1, 2);
  for (const ClockTime time : kTooMuch) {
    EXPECT_FALSE(clock.Set(time, {})) << time.Minutes << ':' << time.Seconds;
    EXPECT_FALSE(clock.Set({}, time)) << time.Minutes << ':' << time.Seconds;
  }
  EXPECT_EQ(clock.Text(), u"00:01 / 00:02");
  EXPECT_TRUE(clock.Set(kHighest, kHighest));
  EXPECT_EQ(clock.ClockSeconds(Colour::White), 32767);
}

TEST(ChessClock, ShowsNegativeTimesToo) {
  ChessClock clock;
  EXPECT_TRUE(clock.Set({.Minutes = -5, .Seconds = 10}, {.Seconds = -3}));
  EXPECT_EQ(clock.Text(), u"-04:-50 / 00:-03");
  EXPECT_EQ(clock.Proposal(Colour::White), u"-4:-50");
  clock.Tick(Colour::Black, 1);
  EXPECT_EQ(clock.ClockSeconds(Colour::Black), -2);
}

}  // namespace
}  // namespace brontavia::test
