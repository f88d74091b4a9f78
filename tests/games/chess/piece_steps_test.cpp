#include "games/chess/piece_steps.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

struct Steps {
  const char* Name;
  const char* Pieces;
  const char* Source;
  const char* Targets;
  const char* EnPassant = nullptr;  // the square onto which both colours may capture
};

void PrintTo(const Steps& steps, std::ostream* out) { *out << steps.Name; }

class PieceReaches : public testing::TestWithParam<Steps> {};

TEST_P(PieceReaches, TheseSquares) {
  const Steps& steps = GetParam();
  ChessPosition position = Placed(steps.Pieces);
  if (steps.EnPassant != nullptr) {
    position.EnPassantSquares = {.White = Square(steps.EnPassant), .Black = Square(steps.EnPassant)};
  }
  EXPECT_EQ(TargetsFrom(position, steps.Source), steps.Targets);
}

constexpr Steps kSteps[] = {
    // ---- Pawns ----
    {"WhitePawnAtHome", "Pe2", "e2", "e3 e4"},
    {"WhitePawnFurtherUp", "Pe3", "e3", "e4"},
    {"WhitePawnBlocked", "Pe2 ne3", "e2", ""},
    {"WhitePawnBlockedByItsOwn", "Pe2 Ne3", "e2", ""},
    {"WhitePawnBlockedTwoStepsAhead", "Pe2 ne4", "e2", "e3"},
    {"WhitePawnCaptures", "Pe4 pd5 rf5 Ne5", "e4", "d5 f5"},
    {"WhitePawnDoesNotCaptureItsOwn", "Pe4 Pd5 Rf5", "e4", "e5"},
    {"WhitePawnDoesNotCaptureStraightAhead", "Pe4 qe5", "e4", ""},
    {"WhitePawnOnTheLeftEdge", "Pa4 nb5", "a4", "a5 b5"},
    {"WhitePawnOnTheRightEdge", "Ph4 ng5", "h4", "g5 h5"},
    {"WhitePawnOnTheLastRow", "Pe8", "e8", ""},
    {"WhitePawnOnItsBackRow", "Pe1", "e1", "e2"},
    {"WhitePawnCapturesEnPassant", "Pe5 pd5", "e5", "d6 e6", "d6"},
    {"WhitePawnFarFromEnPassant", "Pc5 pe5", "c5", "c6", "e6"},
    {"BlackPawnAtHome", "pe7", "e7", "e5 e6"},
    {"BlackPawnFurtherDown", "pe6", "e6", "e5"},
    {"BlackPawnBlocked", "pe7 Ne6", "e7", ""},
    {"BlackPawnBlockedTwoStepsAhead", "pe7 Ne5", "e7", "e6"},
    {"BlackPawnCaptures", "pe5 Pd4 Kf4 ne4", "e5", "d4 f4"},
    {"BlackPawnDoesNotCaptureItsOwn", "pe5 pd4 rf4", "e5", "e4"},
    {"BlackPawnOnTheLeftEdge", "pa5 Nb4", "a5", "a4 b4"},
    {"BlackPawnOnTheRightEdge", "ph5 Ng4", "h5", "g4 h4"},
    {"BlackPawnOnTheLastRow", "pe1", "e1", ""},
    {"BlackPawnOnItsBackRow", "pe8", "e8", "e7"},
    {"BlackPawnCapturesEnPassant", "pd4 Pe4", "d4", "d3 e3", "e3"},
    // ---- Rooks ----
    {"RookOnAnEmptyBoard", "Rd4", "d4", "a4 b4 c4 d1 d2 d3 d5 d6 d7 d8 e4 f4 g4 h4"},
    {"RookInACorner", "ra8", "a8", "a1 a2 a3 a4 a5 a6 a7 b8 c8 d8 e8 f8 g8 h8"},
    {"RookStopsBeforeItsOwnAndAtTheOthers", "Rd4 Pd6 Pb4 pd3 nf4", "d4", "c4 d3 d5 e4 f4"},
    {"BlackRookStopsBeforeItsOwnAndAtTheOthers", "rd4 pd6 pb4 Pd3 Nf4", "d4", "c4 d3 d5 e4 f4"},
    // ---- Knights ----
    {"KnightInTheMiddle", "Nd4", "d4", "b3 b5 c2 c6 e2 e6 f3 f5"},
    {"KnightInACorner", "na1", "a1", "b3 c2"},
    {"KnightInTheOtherCorner", "Nh8", "h8", "f7 g6"},
    {"KnightJumpsOverAll", "Nb1 Pa2 Pb2 Pc2 Pd2 Ra1", "b1", "a3 c3"},
    {"KnightCapturesTheOthersAlone", "nd4 nb3 Pb5 Pc2 pc6", "d4", "b5 c2 e2 e6 f3 f5"},
    // ---- Bishops ----
    {"BishopOnAnEmptyBoard", "Bd4", "d4", "a1 a7 b2 b6 c3 c5 e3 e5 f2 f6 g1 g7 h8"},
    {"BishopStopsBeforeItsOwnAndAtTheOthers", "bd4 pf6 pb2 Pc5 Pe3", "d4", "c3 c5 e3 e5"},
    // ---- Queens ----
    {"QueenOnAnEmptyBoard", "Qd4", "d4",
     "a1 a4 a7 b2 b4 b6 c3 c4 c5 d1 d2 d3 d5 d6 d7 d8 e3 e4 e5 f2 f4 f6 g1 g4 g7 h4 h8"},
    {"QueenHemmedIn", "qd1 pc1 pe1 Pc2 pd2 Pe2", "d1", "c2 e2"},
    // ---- Kings ----
    {"KingInTheMiddle", "Kd4", "d4", "c3 c4 c5 d3 d5 e3 e4 e5"},
    {"KingInACorner", "kh1", "h1", "g1 g2 h2"},
    {"KingCapturesTheOthersAlone", "Kd4 Pd5 Pc4 pe4 qd3", "d4", "c3 c5 d3 e3 e4 e5"},
    {"KingStepsNextToTheOther", "Kd4 kd6", "d4", "c3 c4 c5 d3 d5 e3 e4 e5"},
};
INSTANTIATE_TEST_SUITE_P(PieceSteps, PieceReaches, testing::ValuesIn(kSteps),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(PieceSteps, AreNoneWithoutAPiece) { EXPECT_EQ(PieceSteps(Placed("Ke1"), {.Source = Square("e4")}).size(), 0U); }

TEST(PieceSteps, FillTheListWithTheQueenInTheMiddle) {
  EXPECT_EQ(PieceSteps(Placed("Qe5"), {.Source = Square("e5"), .Piece = kQueen}).size(), TargetList::kCapacity);
}

TEST(PieceSteps, OfAPawnBeginWithTheDoubleStep) {
  const ChessPosition position = Placed("Pe2 pd3 pf3");
  const TargetList steps = PieceSteps(position, Pick(position, "e2"));
  EXPECT_EQ(std::vector<Coordinate>(steps.begin(), steps.end()),
            (std::vector{Square("e4"), Square("e3"), Square("d3"), Square("f3")}));
}

TEST(PieceSteps, OfAPawnNeverLeaveTheBoardForAnEnPassantSquareThere) {
  ChessPosition position = Placed("Pa5 ph4 pa1");
  position.EnPassantSquares = {.White = Coordinate{0, 6}, .Black = Coordinate{9, 3}};
  EXPECT_EQ(TargetsFrom(position, "a5"), "a6");
  EXPECT_EQ(TargetsFrom(position, "h4"), "h3");
  // No en passant square is (0, 0), which lies diagonally below a1.
  position.EnPassantSquares = {};
  EXPECT_EQ(TargetsFrom(position, "a1"), "");
}

TEST(PieceSteps, KeepEnPassantOfEachColourApart) {
  ChessPosition position = Placed("Pe5 Pe4 pd4 pd5");
  position.EnPassantSquares.White = Square("d6");
  EXPECT_EQ(TargetsFrom(position, "e5"), "d6 e6");
  EXPECT_EQ(TargetsFrom(position, "d4"), "d3");
  position.EnPassantSquares = {.White = {}, .Black = Square("e3")};
  EXPECT_EQ(TargetsFrom(position, "e5"), "e6");
  EXPECT_EQ(TargetsFrom(position, "d4"), "d3 e3");
}

TEST(PieceSteps, DoNotLookAtTheOwnKing) {
  EXPECT_EQ(TargetsFrom(Placed("Ke1 Be2 re8"), "e2"), "a6 b5 c4 d1 d3 f1 f3 g4 h5");
}

}  // namespace
}  // namespace brontavia::test
