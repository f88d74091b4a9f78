#include "games/chess/square_text.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

TEST(SquareName, HasTheLetterOfTheColumnAndTheRow) {
  EXPECT_EQ(SquareName({1, 1}), u"a1");
  EXPECT_EQ(SquareName({5, 2}), u"e2");
  EXPECT_EQ(SquareName({8, 8}), u"h8");
  EXPECT_EQ(UpperSquareName({1, 1}), u"A1");
  EXPECT_EQ(UpperSquareName({5, 3}), u"E3");
  EXPECT_EQ(UpperSquareName({8, 8}), u"H8");
}

TEST(SquareName, GoesOnBeyondTheBoard) {
  EXPECT_EQ(SquareName({9, 10}), u"i10");
  EXPECT_EQ(SquareName({0, 6}), u"`6");
  EXPECT_EQ(UpperSquareName({0, 6}), u"@6");
}

TEST(SquareDescription, NamesThePieceAndTheSquare) {
  const ChessPosition position = Placed("Ra1 Pb1 Nc1 Bd1 Qe1 Kf1 ra8 pb8 nc8 bd8 qe8 kf8");
  struct {
    const char* Square;
    std::u16string_view Text;
  } const cases[] = {{"a1", u"Torre blanca A1"},
                     {"b1", u"Peón blanco B1"},
                     {"c1", u"Caballo blanco C1"},
                     {"d1", u"Alfil blanco D1"},
                     {"e1", u"Dama blanca E1"},
                     {"f1", u"Rey blanco F1"},
                     {"a8", u"Torre negra A8"},
                     {"b8", u"Peón negro B8"},
                     {"c8", u"Caballo negro C8"},
                     {"d8", u"Alfil negro D8"},
                     {"e8", u"Dama negra E8"},
                     {"f8", u"Rey negro F8"},
                     {"e4", u" E4"},
                     {"h8", u" H8"}};
  for (const auto& tested : cases) {
    EXPECT_EQ(DescribeSquare(position.Board, Square(tested.Square), {}, false), tested.Text);
    EXPECT_EQ(DescribeSquare(position.Board, Square(tested.Square), {}, true), tested.Text);
  }
}

TEST(SquareDescription, TellsInLearningModeWhatIsWithinReach) {
  const ChessPosition position = Placed("Re1 ne4");
  const TargetList targets = GenerateTargets(position, Pick(position, "e1")).Squares;
  EXPECT_EQ(DescribeSquare(position.Board, Square("e3"), targets, true), u"Disponible  E3");
  EXPECT_EQ(DescribeSquare(position.Board, Square("e4"), targets, true), u"Disponible Caballo negro E4");
  EXPECT_EQ(DescribeSquare(position.Board, Square("e5"), targets, true), u" E5");
  EXPECT_EQ(DescribeSquare(position.Board, Square("e1"), targets, true), u"Torre blanca E1");
  EXPECT_EQ(DescribeSquare(position.Board, Square("e3"), targets, false), u" E3");
}

}  // namespace
}  // namespace brontavia::test
