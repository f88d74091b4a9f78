#include "games/chess/chess_messages.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

TEST(MoveText, HasSquaresEnPassantAndPromotion) {
  ChessPosition position = Placed("Pe2 pd4 Pa7 ph2");
  EXPECT_EQ(MoveText(Make(position, "e2e4")), u"5 2 5 4 False 0");
  EXPECT_EQ(MoveText(Make(position, "d4e3")), u"4 4 5 3 True 0");
  EXPECT_EQ(MoveText(Make(position, "a7a8q")), u"1 7 1 8 False 5");
  EXPECT_EQ(MoveText(Make(position, "h2h1r")), u"8 2 8 1 False 2");
}

TEST(ReceivedMove, IsReadFromTheFirstFourFields) {
  const ReceivedMove expected{.Source = Square("e2"), .Target = Square("e4")};
  for (const std::u16string_view payload :
       {u"5 2 5 4 False 0", u"5 2 5 4", u"5 2 5 4 ", u"5 2 5 4 x y z", u"5.4 2 4.6 4abc", u"+5 02 5e0 4|JUG|"}) {
    EXPECT_EQ(ReadMove(payload), expected) << Narrow(payload);
  }
}

TEST(ReceivedMove, IsRefused) {
  for (const std::u16string_view payload :
       {u"", u" ", u"5", u"5 2 5", u"5 2 5 ", u"0 2 5 4", u"5 9 5 4", u"5 2 -1 4", u"5 2 5 99999999999999", u"a b c d",
        u" 5 2 5 4", u"5  2 5 4", u"5\t2\t5\t4", u"0.5 2 5 4", u"8.5001 2 5 4"}) {
    EXPECT_EQ(ReadMove(payload), std::nullopt) << Narrow(payload);
  }
}

TEST(ReceivedMove, IsWhatWasSent) {
  for (int n = 0; n < 4096; ++n) {
    const ReceivedMove sent{.Source = {1 + n % 8, 1 + n / 8 % 8}, .Target = {1 + n / 64 % 8, 1 + n / 512}};
    const ChessMove move{.Moved = {.Source = sent.Source, .Piece = kQueen}, .Target = sent.Target};
    ASSERT_EQ(ReadMove(MoveText(move)), sent);
  }
}

TEST(ReceivedMove, IsOnTheBoardWhateverArrives) {
  constexpr std::u16string_view kLikely = u"012345678912345678         -.&HeJ|";
  std::mt19937 random(3);
  int read = 0;
  for (int n = 0; n < 100'000; ++n) {
    std::u16string payload;
    for (auto length = random() % 20; length > 0; --length) payload += kLikely[random() % kLikely.size()];
    const auto move = ReadMove(payload);
    if (!move) continue;
    ++read;
    ASSERT_TRUE(ChessBoard::IsOnBoard(move->Source) && ChessBoard::IsOnBoard(move->Target)) << Narrow(payload);
  }
  EXPECT_GT(read, 100);
}

TEST(TurnsText, HasPlayerOfWhiteSideAndPlayerToMove) {
  EXPECT_EQ(TurnsText({.White = Player::Client, .SideToMove = Colour::White, .ToMove = Player::Client}), u"1 0 1");
  EXPECT_EQ(TurnsText({.White = Player::Server, .SideToMove = Colour::Black, .ToMove = Player::Server}), u"0 1 0");
}

TEST(ReceivedTurns, AreWhatWasSent) {
  for (const Player white : kBothPlayers) {
    for (const Colour side : kBothColours) {
      for (const Player to_move : kBothPlayers) {
        const ResumedTurns sent{.White = white, .SideToMove = side, .ToMove = to_move};
        EXPECT_EQ(ReadTurns(TurnsText(sent)), sent);
      }
    }
  }
}

TEST(ReceivedTurns, AreReadFromTheFirstThreeFields) {
  const ResumedTurns expected{.White = Player::Client, .SideToMove = Colour::Black, .ToMove = Player::Server};
  for (const std::u16string_view payload :
       {u"1 1 0", u"1 1 0 ", u"1 1 0 7", u"1 1 x", u"1 1 ", u"0.6 1.4 0.5", u"+1 01 0JUG|"}) {
    EXPECT_EQ(ReadTurns(payload), expected) << Narrow(payload);
  }
}

TEST(ReceivedTurns, AreRefused) {
  for (const std::u16string_view payload :
       {u"", u" ", u"1 1", u"2 0 0", u"0 2 0", u"0 0 2", u"0 0 -1", u"0 1.6 0", u"0 0 9e99"}) {
    EXPECT_EQ(ReadTurns(payload), std::nullopt) << Narrow(payload);
  }
}

}  // namespace
}  // namespace brontavia::test
