#include "games/chess/move_generation.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

struct CastlingOffer {
  const char* Name;
  const char* Pieces;
  const char* Rights;
  const char* Short;  // "-" when it is not offered
  const char* Long;
  const char* King = "e1";
};

void PrintTo(const CastlingOffer& castling, std::ostream* out) { *out << castling.Name; }

class CastlingIsOffered : public testing::TestWithParam<CastlingOffer> {};

std::optional<Coordinate> SquareOrNone(std::string_view name) {
  return name == "-" ? std::nullopt : std::optional(Square(name));
}

TEST_P(CastlingIsOffered, WhereTheWayIsFree) {
  const CastlingOffer& castling = GetParam();
  const ChessPosition position = Placed(castling.Pieces, castling.Rights);
  const GeneratedTargets targets = GenerateTargets(position, Pick(position, castling.King));
  const std::optional<Coordinate> short_target = SquareOrNone(castling.Short);
  const std::optional<Coordinate> long_target = SquareOrNone(castling.Long);
  EXPECT_EQ(targets.Castles.Short, short_target);
  EXPECT_EQ(targets.Castles.Long, long_target);
  const std::size_t steps = PieceSteps(position, Pick(position, castling.King)).size();
  EXPECT_EQ(targets.Squares.size(), steps + (short_target ? 1 : 0) + (long_target ? 1 : 0));
  for (const std::optional<Coordinate>& target : {short_target, long_target}) {
    EXPECT_TRUE(!target || targets.Squares.Holds(*target));
  }
}

constexpr CastlingOffer kCastlings[] = {
    {"WhiteBothWays", "Ke1 Ra1 Rh1 ke8", "KQkq", "g1", "c1"},
    {"BlackBothWays", "ke8 ra8 rh8 Ke1", "KQkq", "g8", "c8", "e8"},
    {"WhiteShortAlone", "Ke1 Ra1 Rh1", "Kkq", "g1", "-"},
    {"WhiteLongAlone", "Ke1 Ra1 Rh1", "Qkq", "-", "c1"},
    {"BlackShortAlone", "ke8 ra8 rh8", "KQk", "g8", "-", "e8"},
    {"BlackLongAlone", "ke8 ra8 rh8", "KQq", "-", "c8", "e8"},
    {"NeverWithoutTheRight", "Ke1 Ra1 Rh1", "kq", "-", "-"},
    // ---- Pieces between ----
    {"WhiteShortBlockedOnF1", "Ke1 Rh1 Bf1", "KQ", "-", "c1"},
    {"WhiteShortBlockedOnG1", "Ke1 Rh1 ng1", "KQ", "-", "c1"},
    {"WhiteLongBlockedOnB1", "Ke1 Ra1 Nb1", "KQ", "g1", "-"},
    {"WhiteLongBlockedOnC1", "Ke1 Ra1 Bc1", "KQ", "g1", "-"},
    {"WhiteLongBlockedOnD1", "Ke1 Ra1 Qd1", "KQ", "g1", "-"},
    {"BlackShortBlockedOnF8", "ke8 rh8 bf8", "kq", "-", "c8", "e8"},
    {"BlackLongBlockedOnB8", "ke8 ra8 nb8", "kq", "g8", "-", "e8"},
    // ---- Attacked squares ----
    {"NotOutOfCheck", "Ke1 Ra1 Rh1 re8", "KQ", "-", "-"},
    {"NotThroughAnAttackOnF1", "Ke1 Ra1 Rh1 rf8", "KQ", "-", "c1"},
    {"NotIntoAnAttackOnG1", "Ke1 Ra1 Rh1 rg8", "KQ", "-", "c1"},
    {"NotThroughAnAttackOnD1", "Ke1 Ra1 Rh1 rd8", "KQ", "g1", "-"},
    {"NotIntoAnAttackOnC1", "Ke1 Ra1 Rh1 rc8", "KQ", "g1", "-"},
    {"PastAnAttackOnB1", "Ke1 Ra1 Rh1 rb8", "KQ", "g1", "c1"},
    {"PastAnAttackOnTheRooks", "Ke1 Ra1 Rh1 ra8 rh8", "KQ", "g1", "c1"},
    {"BlackNotThroughAnAttackOnD8", "ke8 ra8 rh8 Rd1", "kq", "g8", "-", "e8"},
    {"BlackPastAnAttackOnB8", "ke8 ra8 rh8 Rb1", "kq", "g8", "c8", "e8"},
    // ---- Pawns as the attack test knows them ----
    {"BlackPastWhitePawns", "ke8 ra8 rh8 Pd7 Pf7", "kq", "g8", "c8", "e8"},
    {"PastABlackPawnThatMayStepOntoG1", "Ke1 Ra1 Rh1 pg2", "KQ", "g1", "c1"},
    {"NotBesideABlackPawnThatChecks", "Ke1 Ra1 Rh1 pd2", "KQ", "-", "-"},
    // ---- What is not asked ----
    {"WithoutARook", "Ke1", "KQ", "g1", "c1"},
    {"FromAnywhere", "Kd4 Ra1 Rh1", "KQ", "g1", "c1", "d4"},
    {"WithTheOtherKingAboutToCastle", "Ke1 Ra1 Rh1 ke8 ra8 rh8", "KQkq", "g1", "c1"},
};
INSTANTIATE_TEST_SUITE_P(Castling, CastlingIsOffered, testing::ValuesIn(kCastlings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(GeneratedTargets, OfOtherPiecesHoldNoCastling) {
  const ChessPosition position = Placed("Ke1 Ra1 Rh1 Qd4", "KQ");
  for (const char* source : {"a1", "h1", "d4"}) {
    EXPECT_EQ(GenerateTargets(position, Pick(position, source)).Castles, CastleTargets{}) << source;
  }
}

TEST(GeneratedTargets, AreNoneWithoutAPiece) {
  const GeneratedTargets targets = GenerateTargets(StartPosition(), {});
  EXPECT_EQ(targets.Squares.size(), 0U);
  EXPECT_EQ(targets.Castles, CastleTargets{});
}

TEST(GeneratedTargets, MakeTwentyMovesAtTheStart) {
  std::size_t moves = 0;
  const ChessPosition position = StartPosition();
  for (int column = 1; column <= kBoardSide; ++column) {
    for (const int row : {1, 2}) {
      moves += GenerateTargets(position, {{column, row}, position.Board.At({column, row})}).Squares.size();
    }
  }
  EXPECT_EQ(moves, 20U);
}

TEST(GeneratedTargets, OfAKingIncludeAttackedSquares) {
  EXPECT_EQ(TargetsFrom(Placed("Ke1 rd8"), "e1"), "d1 d2 e2 f1 f2");
}

}  // namespace
}  // namespace brontavia::test
