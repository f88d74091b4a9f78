#include "games/chess/attack.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

struct Attack {
  const char* Name;
  const char* Pieces;
  const char* Target;
  std::optional<brontavia::Colour> Colour;
  bool Attacked;
};

void PrintTo(const Attack& attack, std::ostream* out) { *out << attack.Name; }

class Attacks : public testing::TestWithParam<Attack> {};

TEST_P(Attacks, AreSeen) {
  const Attack& attack = GetParam();
  EXPECT_EQ(IsSquareAttacked(Placed(attack.Pieces), Square(attack.Target), attack.Colour), attack.Attacked);
}

constexpr Attack kAttacks[] = {
    {"ByARook", "Ke1 re8", "e1", Colour::White, true},
    {"ByARookBehindAPiece", "Ke1 Pe2 re8", "e1", Colour::White, false},
    {"ByAKnight", "Ke1 nf3", "e1", Colour::White, true},
    {"ByABishop", "ke8 Ba4", "e8", Colour::Black, true},
    {"ByAQueen", "ke8 Qh5", "e8", Colour::Black, true},
    {"ByAKing", "Ke1 ke2", "e1", Colour::White, true},
    {"NotByTheOwnSide", "Ke1 Re8", "e1", Colour::White, false},
    {"OfAnEmptySquareForAColour", "re8", "e4", Colour::White, true},
    {"OfAnEmptySquareForTheOtherColour", "re8", "e4", Colour::Black, false},
    {"OfAnEmptySquareForItsOwnColour", "re8", "e4", std::nullopt, false},
    {"OfAPieceForItsOwnColour", "re8 Pe4", "e4", std::nullopt, true},
    {"OfAPieceForItsOwnColourBesideItsLike", "re8 pe4", "e4", std::nullopt, false},
    {"OfASquareThatHoldsTheAttackersOwnPiece", "re8 pe4", "e4", Colour::White, false},
    // ---- Black pawns: diagonally, never straight ahead ----
    {"ByABlackPawnDiagonally", "Ke4 pd5", "e4", Colour::White, true},
    {"ByABlackPawnStraightAhead", "pe5", "e4", Colour::White, false},
    {"ByABlackPawnTwoStepsAhead", "pe7", "e5", Colour::White, false},
    {"ByABlackPawnOnAnEmptySquare", "pd5", "e4", Colour::White, false},
    // ---- White pawns: never ----
    {"NotByAWhitePawnDiagonally", "ke5 Pd4", "e5", Colour::Black, false},
    {"NotByAWhitePawnStraightAhead", "Pe4", "e5", Colour::Black, false},
    // ---- The later piece decides: column by column from a, each from row 1 up ----
    {"TakenBackByALaterWhitePawn", "ke5 Re1 Pf4", "e5", Colour::Black, false},
    {"MadeAgainByABishopHigherInTheWhitePawnsColumn", "kb4 Bc5 Pc3", "b4", Colour::Black, true},
    {"NotTakenBackByAnEarlierWhitePawn", "ke5 Re1 Pd4", "e5", Colour::Black, true},
    {"TakenBackByAWhitePawnHigherInTheAttackersColumn", "ke5 Nd3 Pd4", "e5", Colour::Black, false},
    {"TakenBackByALaterBlackPawnStraightAhead", "ra4 pe5", "e4", Colour::White, false},
    {"NotTakenBackByABlackPawnBeforeALaterRook", "rh4 pe5", "e4", Colour::White, true},
    {"NotTakenBackByABlackPawnThatAttacks", "ra4 pf5 Ke4", "e4", Colour::White, true},
};
INSTANTIATE_TEST_SUITE_P(Attack, Attacks, testing::ValuesIn(kAttacks),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(Attack, IsNotMadeByCastling) {
  EXPECT_FALSE(IsSquareAttacked(Placed("ke8", "kq"), Square("g8"), Colour::White));
  EXPECT_FALSE(IsSquareAttacked(Placed("ke8", "kq"), Square("c8"), Colour::White));
}

TEST(Attack, IsMadeEnPassantToo) {
  ChessPosition position = Placed("pd4 Pe4");
  EXPECT_FALSE(IsSquareAttacked(position, Square("e3"), Colour::White));
  position.EnPassantSquares.Black = Square("e3");
  EXPECT_TRUE(IsSquareAttacked(position, Square("e3"), Colour::White));
}

TEST(Attack, PassesThroughALiftedPiece) {
  const ChessPosition position = Placed("Ke1 Pe2 re8");
  EXPECT_TRUE(IsSquareAttacked(position, Square("e1"), Colour::White, Square("e2")));
  EXPECT_FALSE(IsSquareAttacked(position, Square("e1"), Colour::White, Square("e8")));
  EXPECT_FALSE(IsSquareAttacked(position, Square("e1"), Colour::White, Square("h8")));
  EXPECT_EQ(position.Board.At(Square("e2")), kPawn);
}

TEST(Attack, FindsNoColourWhereThePieceIsLifted) {
  const ChessPosition position = Placed("Ke1 re8");
  EXPECT_FALSE(IsSquareAttacked(position, Square("e1"), std::nullopt, Square("e1")));
  EXPECT_TRUE(IsSquareAttacked(position, Square("e1"), Colour::White, Square("e1")));
}

TEST(KingAttack, IsLookedForWhereTheKingIsKept) {
  ChessPosition position = Placed("Ke1 re8 kh8");
  EXPECT_TRUE(IsKingAttacked(position, Colour::White));
  EXPECT_FALSE(IsKingAttacked(position, Colour::Black));
  position.KingSquares.White = Square("d1");
  EXPECT_FALSE(IsKingAttacked(position, Colour::White));
}

TEST(KingAttack, NeverConcernsASideWithoutKing) {
  const ChessPosition position = Placed("Qa1 Qb1 qa2 qb2 ra3 pa4");
  EXPECT_FALSE(IsKingAttacked(position, Colour::White));
  EXPECT_FALSE(IsKingAttacked(position, Colour::Black));
}

}  // namespace
}  // namespace brontavia::test
