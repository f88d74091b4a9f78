#include "games/chess/standard_fen.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

TEST(StandardFen, TellsTheStart) {
  EXPECT_EQ(ReadStandardFen(u"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"), StartPosition());
}

TEST(StandardFen, TellsEveryField) {
  ChessPosition expected = Placed("Ke1 Ra1 Pe4 pd4 ke8 rh8", "Qk");
  expected.SideToMove = Colour::Black;
  expected.EnPassantSquares.Black = Square("e3");
  expected.FenEnPassant = Square("e3");
  expected.HalfMoveClock = 123;
  expected.MoveNumber = 32767;
  EXPECT_EQ(ReadStandardFen(u"4k2r/8/8/8/3pP3/8/8/R3K3 b Qk e3 123 32767"), expected);
}

TEST(StandardFen, MayHaveBlanksAroundIt) { EXPECT_EQ(ReadStandardFen(u"  8/8/8/8/8/8/8/8 w - - 0 1 "), Placed("")); }

struct EnPassant {
  const char* Name;
  const char16_t* Text;
  const char* Told;
  const char* White;
  const char* Black;
};

void PrintTo(const EnPassant& tested, std::ostream* out) { *out << tested.Name; }

class StandardEnPassant : public testing::TestWithParam<EnPassant> {};

TEST_P(StandardEnPassant, CountsWhereAPawnMayCapture) {
  const auto square = [](std::string_view name) { return name.empty() ? std::nullopt : std::optional(Square(name)); };
  const auto position = ReadStandardFen(GetParam().Text);
  ASSERT_TRUE(position);
  EXPECT_EQ(position->FenEnPassant, square(GetParam().Told));
  EXPECT_EQ(position->EnPassantSquares.White, square(GetParam().White));
  EXPECT_EQ(position->EnPassantSquares.Black, square(GetParam().Black));
}

constexpr EnPassant kEnPassant[] = {
    {"BlackFromTheLeft", u"8/8/8/8/3pP3/8/8/8 b - e3 0 1", "e3", "", "e3"},
    {"BlackFromTheRight", u"8/8/8/8/4Pp2/8/8/8 b - e3 0 1", "e3", "", "e3"},
    {"WhiteFromTheLeft", u"8/8/8/3Pp3/8/8/8/8 w - e6 0 1", "e6", "e6", ""},
    {"WhiteFromTheRight", u"8/8/8/4pP2/8/8/8/8 w - e6 0 1", "e6", "e6", ""},
    {"AtTheLeftEdge", u"8/8/8/pP6/8/8/8/8 w - a6 0 1", "a6", "a6", ""},
    {"AtTheRightEdge", u"8/8/8/6Pp/8/8/8/8 w - h6 0 1", "h6", "h6", ""},
    {"WithNobodyBeside", u"8/8/8/8/4P3/8/8/8 b - e3 0 1", "e3", "", ""},
    {"WithAnotherPieceBeside", u"8/8/8/8/3nP3/8/8/8 b - e3 0 1", "e3", "", ""},
    {"WithAnOwnPawnBeside", u"8/8/8/8/3PP3/8/8/8 b - e3 0 1", "e3", "", ""},
    {"WithoutThePawnThatHasPassed", u"8/8/8/8/3p4/8/8/8 b - e3 0 1", "e3", "", ""},
    {"None", u"8/8/8/8/3pP3/8/8/8 b - - 0 1", "", "", ""},
};
INSTANTIATE_TEST_SUITE_P(StandardFen, StandardEnPassant, testing::ValuesIn(kEnPassant),
                         [](const auto& tested) { return std::string(tested.param.Name); });

struct Refusal {
  const char* Name;
  const char16_t* Text;
};

void PrintTo(const Refusal& refusal, std::ostream* out) { *out << refusal.Name; }

class StandardFenRefuses : public testing::TestWithParam<Refusal> {};

TEST_P(StandardFenRefuses, What) { EXPECT_EQ(ReadStandardFen(GetParam().Text), std::nullopt); }

constexpr Refusal kRefusals[] = {
    {"Nothing", u""},
    {"ABoardAlone", u"8/8/8/8/8/8/8/8"},
    {"AMissingCounter", u"8/8/8/8/8/8/8/8 w - - 0"},
    {"AFieldTooMany", u"8/8/8/8/8/8/8/8 w - - 0 1 x"},
    {"TwoBlanks", u"8/8/8/8/8/8/8/8  w - - 0 1"},
    {"SevenRows", u"8/8/8/8/8/8/8 w - - 0 1"},
    {"NineRows", u"8/8/8/8/8/8/8/8/8 w - - 0 1"},
    {"AShortRow", u"8/8/8/7/8/8/8/8 w - - 0 1"},
    {"ALongRow", u"8/8/8/8p/8/8/8/8 w - - 0 1"},
    {"ARunOverTheEdge", u"8/8/8/pp7/8/8/8/8 w - - 0 1"},
    {"ARunOfNone", u"8/8/8/80/8/8/8/8 w - - 0 1"},
    {"ARunOfNine", u"8/8/8/9/8/8/8/8 w - - 0 1"},
    {"SpanishLetters", u"8/8/8/D7/8/8/8/8 w - - 0 1"},
    {"OtherCharacters", u"8/8/8/7ñ/8/8/8/8 w - - 0 1"},
    {"AnEmptyRow", u"8/8/8//8/8/8/8 w - - 0 1"},
    {"ACapitalSide", u"8/8/8/8/8/8/8/8 W - - 0 1"},
    {"AnotherSide", u"8/8/8/8/8/8/8/8 n - - 0 1"},
    {"CastlingOutOfOrder", u"8/8/8/8/8/8/8/8 w QK - 0 1"},
    {"CastlingTwice", u"8/8/8/8/8/8/8/8 w KK - 0 1"},
    {"OtherCastling", u"8/8/8/8/8/8/8/8 w RDrd - 0 1"},
    {"EnPassantOffTheBoard", u"8/8/8/8/8/8/8/8 w - i6 0 1"},
    {"EnPassantInTheRowOfTheSideToMove", u"8/8/8/8/8/8/8/8 w - e3 0 1"},
    {"EnPassantInAnotherRow", u"8/8/8/8/8/8/8/8 b - e4 0 1"},
    {"EnPassantWithoutRow", u"8/8/8/8/8/8/8/8 b - e 0 1"},
    {"EnPassantTooLong", u"8/8/8/8/8/8/8/8 b - e33 0 1"},
    {"ANegativeCounter", u"8/8/8/8/8/8/8/8 w - - -1 1"},
    {"ACounterInWords", u"8/8/8/8/8/8/8/8 w - - 0 one"},
    {"AHugeCounter", u"8/8/8/8/8/8/8/8 w - - 0 32768"},
    {"AVeryLongCounter", u"8/8/8/8/8/8/8/8 w - - 99999999999999999999 1"},
};
INSTANTIATE_TEST_SUITE_P(StandardFen, StandardFenRefuses, testing::ValuesIn(kRefusals),
                         [](const auto& tested) { return std::string(tested.param.Name); });

}  // namespace
}  // namespace brontavia::test
