#include "games/chess/position_line.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <random>
#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

using namespace std::string_view_literals;

constexpr std::u16string_view kStart = u"tcadract/pppppppp/8/8/8/8/PPPPPPPP/TCADRACT/B RDrd - 0 1";
constexpr std::u16string_view kEmptyBoard = u"8/8/8/8/8/8/8/8/";

// A position unlike any that a line below tells, so that what stays of it shows.
ChessPosition Before() {
  ChessPosition position = Placed("Ka3 kh6 qd4 Nd5", "Kq");
  position.EnPassantSquares = {.White = Square("a6"), .Black = Square("h3")};
  position.FenEnPassant = Coordinate{2, 2};
  position.HalfMoveClock = 77;
  position.MoveNumber = 66;
  return position;
}

ChessPosition Read(std::u16string_view line, const ChessPosition& before = Before()) {
  return ReadPosition(line, before).value();
}

std::u16string operator+(std::u16string_view left, std::u16string_view right) {
  return std::u16string(left) + std::u16string(right);
}

// ---- Writing ----

TEST(WrittenLine, TellsTheStart) { EXPECT_EQ(PositionLine(StartPosition()), kStart); }

TEST(WrittenLine, TellsWhitesDoubleStepByItsColumn) {
  ChessPosition position = StartPosition();
  Play(position, "e2e4");
  EXPECT_EQ(PositionLine(position), u"tcadract/pppppppp/8/8/4P3/8/PPPP1PPP/TCADRACT/N RDrd e6 0 1");
}

TEST(WrittenLine, TellsBlacksDoubleStepByItsSquare) {
  ChessPosition position = StartPosition();
  Play(position, "a2a3");
  Play(position, "h7h5");
  EXPECT_EQ(PositionLine(position), u"tcadract/ppppppp1/8/7p/8/P7/1PPPPPPP/TCADRACT/B RDrd h6 0 2");
}

TEST(WrittenLine, HasADashWithoutCastling) {
  EXPECT_EQ(PositionLine(Placed("Ke1 ke8")), u"4r3/8/8/8/8/8/8/4R3/B - - 0 1");
}

TEST(WrittenLine, HasALetterForEachCastling) {
  for (const auto& [rights, written] : {std::pair("K", u"R"sv), std::pair("Q", u"D"sv), std::pair("k", u"r"sv),
                                        std::pair("q", u"d"sv), std::pair("Qk", u"Dr"sv), std::pair("Kkq", u"Rrd"sv)}) {
    EXPECT_EQ(PositionLine(Placed("", rights)), kEmptyBoard + u"B " + written + u" - 0 1") << rights;
  }
}

TEST(WrittenLine, HasEveryPieceAndEveryRun) {
  EXPECT_EQ(PositionLine(Placed("Pa1 Rb1 Nc1 Bd1 Qe1 Kf1 ph8 rg8 nf8 be8 qd8 kc8 Pa4 Pc4 Ph4")),
            u"2rdactp/8/8/8/P1P4P/8/8/PTCADR2/B - - 0 1");
}

TEST(WrittenLine, HasAllDigitsOfTheCounters) {
  ChessPosition position = Placed("");
  position.HalfMoveClock = 12;
  position.MoveNumber = 130;
  EXPECT_EQ(PositionLine(position), kEmptyBoard + u"B - - 12 130");
}

// ---- Reading ----

TEST(ReadLine, TellsTheStart) { EXPECT_EQ(Read(kStart), StartPosition()); }

TEST(ReadLine, TellsTheSameInEnglishLetters) {
  EXPECT_EQ(Read(u"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR/W KQkq - 0 1"), StartPosition());
}

TEST(ReadLine, IsInEnglishWithACapitalKAnywhere) {
  EXPECT_EQ(Read(u"8/8/8/8/8/8/8/RB6/N - - 0 1").Board, Placed("Ka1").Board);        // a Spanish king; "B" is no piece
  EXPECT_EQ(Read(u"8/8/8/8/8/8/8/RB6/N - - 0 1 K").Board, Placed("Ra1 Bb1").Board);  // an English rook and bishop
}

struct Side {
  const char16_t* Letter;
  const char16_t* Castling;
  Colour ToMove;
};

TEST(ReadLine, TellsTheSideToMove) {
  constexpr Side kSides[] = {{u"B", u"RD", Colour::White}, {u"N", u"RD", Colour::Black}, {u"W", u"RD", Colour::White},
                             {u"b", u"RD", Colour::White}, {u"n", u"RD", Colour::White}, {u"B", u"KQ", Colour::Black},
                             {u"N", u"KQ", Colour::Black}, {u"W", u"KQ", Colour::White}, {u"b", u"KQ", Colour::White},
                             {u"w", u"KQ", Colour::White}, {u"x", u"KQ", Colour::White}};
  for (const Side& side : kSides) {
    EXPECT_EQ(Read(kEmptyBoard + side.Letter + u" " + side.Castling + u" - 0 1").SideToMove, side.ToMove)
        << Narrow(side.Letter) << ' ' << Narrow(side.Castling);
  }
}

TEST(ReadLine, TellsCastling) {
  const auto read = [](std::u16string_view field) { return Read(kEmptyBoard + u"B " + field + u" - 0 1").Castling; };
  EXPECT_EQ(read(u"-"), Placed("").Castling);
  EXPECT_EQ(read(u"RDrd"), Placed("", "KQkq").Castling);
  EXPECT_EQ(read(u"drDR"), Placed("", "KQkq").Castling);
  EXPECT_EQ(read(u"D"), Placed("", "Q").Castling);
  EXPECT_EQ(read(u"rxx"), Placed("", "k").Castling);
  EXPECT_EQ(read(u"Qkq"), Placed("").Castling);  // Spanish letters count: there is no capital K
  EXPECT_EQ(read(u"Kq"), Placed("", "Kq").Castling);
  EXPECT_EQ(read(u"KRDrd"), Placed("", "K").Castling);
}

TEST(ReadLine, TellsOneDigitOfEachCounter) {
  struct {
    std::u16string_view Counters;
    int HalfMoves;
    int Number;
  } const cases[] = {{u"0 1", 0, 1}, {u"7 9", 7, 9}, {u"12 30", 1, 0}, {u"5 30", 5, 3},
                     {u"x y", 0, 0}, {u"3", 3, 0},   {u"3 ", 3, 0},    {u"", 0, 0}};
  for (const auto& tested : cases) {
    const ChessPosition position = Read(kEmptyBoard + u"B - - " + tested.Counters);
    EXPECT_EQ(position.HalfMoveClock, tested.HalfMoves) << Narrow(tested.Counters);
    EXPECT_EQ(position.MoveNumber, tested.Number) << Narrow(tested.Counters);
  }
}

TEST(ReadLine, FindsTheKings) {
  const ChessPosition position = Read(u"3r4/8/8/8/R7/2R5/8/8/B - - 0 1");
  EXPECT_EQ(position.KingSquares.White, Square("a4"));
  EXPECT_EQ(position.KingSquares.Black, Square("d8"));
  EXPECT_EQ(Read(kEmptyBoard + u"B - - 0 1").KingSquares, PerColour<std::optional<Coordinate>>{});
}

// ---- En passant ----

struct EnPassantField {
  const char* Name;
  const char16_t* Board;
  const char16_t* Field;
  Coordinate Fen;
  std::optional<Coordinate> White;  // nothing: as before
  std::optional<Coordinate> Black;
};

void PrintTo(const EnPassantField& field, std::ostream* out) { *out << field.Name; }

class EnPassantFields : public testing::TestWithParam<EnPassantField> {};

TEST_P(EnPassantFields, AreRead) {
  const EnPassantField& field = GetParam();
  const ChessPosition before = Before();
  const ChessPosition position = Read(std::u16string(field.Board) + u"B - " + field.Field + u" 0 1", before);
  EXPECT_EQ(position.FenEnPassant, field.Fen);
  EXPECT_EQ(position.EnPassantSquares.White, field.White ? field.White : before.EnPassantSquares.White);
  EXPECT_EQ(position.EnPassantSquares.Black, field.Black ? field.Black : before.EnPassantSquares.Black);
}

constexpr EnPassantField kEnPassantFields[] = {
    {"TheLetterCountsFromZero", u"8/8/8/8/8/8/8/8/", u"e6", {4, 6}, {}, {}},
    {"CapitalsCountAlike", u"8/8/8/8/8/8/8/8/", u"E6", {4, 6}, {}, {}},
    {"AIsNoColumn", u"8/8/8/8/8/8/8/8/", u"a3", {0, 3}, {}, {}},
    {"BlackPawnToTheLeftInRowFour", u"8/8/8/8/2p5/8/8/8/", u"e3", {4, 3}, {}, Coordinate{4, 3}},
    {"BlackPawnToTheRightInRowFour", u"8/8/8/8/4p3/8/8/8/", u"e3", {4, 3}, {}, Coordinate{4, 3}},
    {"BlackPawnStraightAheadInRowFour", u"8/8/8/8/3p4/8/8/8/", u"e3", {4, 3}, {}, {}},
    {"WhitePawnsInRowFour", u"8/8/8/8/2P1P3/8/8/8/", u"e3", {4, 3}, {}, {}},
    {"BlackPawnToTheLeftInRowFive", u"8/8/8/2p5/8/8/8/8/", u"e6", {4, 6}, Coordinate{4, 6}, {}},
    {"BlackPawnToTheRightInRowFive", u"8/8/8/4p3/8/8/8/8/", u"e6", {4, 6}, Coordinate{4, 6}, {}},
    {"WhitePawnsInRowFive", u"8/8/8/2P1P3/8/8/8/8/", u"e6", {4, 6}, {}, {}},
    {"BeyondTheLeftEdge", u"8/8/8/p7/8/8/8/8/", u"a6", {0, 6}, Coordinate{0, 6}, {}},
    {"BeyondTheRightEdge", u"8/8/8/7p/8/8/8/8/", u"j6", {9, 6}, Coordinate{9, 6}, {}},
    {"FarBeyondTheLeftEdge", u"pppppppp/8/8/pppppppp/8/8/8/8/", u"!6", {'!' - 'a', 6}, {}, {}},
    {"FarBeyondTheRightEdge", u"pppppppp/8/8/pppppppp/8/8/8/8/", u"ÿ6", {0xFF - 'a', 6}, {}, {}},
    {"AnotherRow", u"8/8/pppppppp/pppppppp/8/8/8/8/", u"e5", {4, 5}, {}, {}},
    {"NoRow", u"8/8/pppppppp/pppppppp/8/8/8/8/", u"ex", {4, 0}, {}, {}},
    {"MoreThanTwoCharacters", u"8/8/8/4p3/8/8/8/8/", u"e6e3", {4, 6}, Coordinate{4, 6}, {}},
};
INSTANTIATE_TEST_SUITE_P(ReadLine, EnPassantFields, testing::ValuesIn(kEnPassantFields),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(ReadLine, ClearsEnPassantWithOneCharacterOrNone) {
  for (const std::u16string_view field : {u"-"sv, u"e"sv, u""sv}) {
    const ChessPosition position = Read(kEmptyBoard + u"B - " + field + u" 0 1");
    EXPECT_EQ(position.EnPassantSquares, PerColour<std::optional<Coordinate>>{}) << Narrow(field);
    EXPECT_EQ(position.FenEnPassant, std::nullopt) << Narrow(field);
  }
}

// ---- The board ----

TEST(ReadLine, PassesOverWhatLiesBeyondTheBoard) {
  EXPECT_EQ(Read(u"8TT/PPPPPPPPPPPP/99/8/8/8/8/7RR/B - - 0 1").Board,
            Placed("Pa7 Pb7 Pc7 Pd7 Pe7 Pf7 Pg7 Ph7 Kh1").Board);
}

TEST(ReadLine, SkipsOtherCharactersOfTheBoard) {
  EXPECT_EQ(Read(u"8/8/8/8/8/8/8/ x1-0-RÑ6*/B - - 0 1").Board, Placed("Kb1").Board);
}

TEST(ReadLine, LeavesSquaresThatItDoesNotMention) {
  const ChessPosition before = Placed("Qa8 Qh8 Qd5 qa1");
  EXPECT_EQ(Read(u"1//8/8/8/8/8/R/B - - 0 1", before).Board, Placed("Qh8 Ka1").Board);
}

TEST(ReadLine, CountsMissingFieldsAsEmpty) {
  const ChessPosition position = Read(kEmptyBoard);
  EXPECT_EQ(position.Board, ChessBoard{});
  EXPECT_EQ(position.SideToMove, Colour::White);
  EXPECT_EQ(position.Castling, Placed("").Castling);
  EXPECT_EQ(position.EnPassantSquares, PerColour<std::optional<Coordinate>>{});
  EXPECT_EQ(position.HalfMoveClock, 0);
  EXPECT_EQ(position.MoveNumber, 0);
}

TEST(ReadLine, IsRefusedWhenItsBoardDoesNotEnd) {
  for (const std::u16string_view line : {u""sv, u"/"sv, u"///////"sv, u"8/8/8/8/8/8/8/8"sv,
                                         u"tcadract/pppppppp/8/8/8/8/PPPPPPPP/TCADRACT B RDrd - 0 1"sv,
                                         u"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR W KQkq - 0 1"sv}) {
    EXPECT_EQ(ReadPosition(line, Before()), std::nullopt) << Narrow(line);
  }
}

TEST(ReadLine, MayBeStandardNotation) {
  EXPECT_EQ(Read(u"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"), StartPosition());
  EXPECT_EQ(Read(u"8/8/8/8/8/8/8/8 b - - 12 345").MoveNumber, 345);
}

// ---- There and back ----

// What a line cannot carry, as reading it leaves it: counters of several digits, a column of FenEnPassant counted from
// 0 instead of 1.
ChessPosition AsCarried(ChessPosition position) {
  if (position.FenEnPassant) --position.FenEnPassant->Column;
  return position;
}

TEST(LineThereAndBack, KeepsRandomPositions) {
  std::mt19937 random(7);
  const auto below = [&random](unsigned bound) { return static_cast<int>(random() % bound); };
  for (int n = 0; n < 20'000; ++n) {
    ChessPosition position;
    for (int pieces = below(33); pieces > 0; --pieces) {
      position.Board.Put({1 + below(8), 1 + below(8)}, PieceOf(1 + below(6), ColourOfNumber(below(2)).value()));
    }
    position.KingSquares = FindKings(position.Board);
    position.SideToMove = ColourOfNumber(below(2)).value();
    position.Castling = {.White = {.Short = below(2) == 0, .Long = below(2) == 0},
                         .Black = {.Short = below(2) == 0, .Long = below(2) == 0}};
    position.HalfMoveClock = static_cast<std::int16_t>(below(10));
    position.MoveNumber = static_cast<std::int16_t>(below(10));
    // Rows in which no en passant square arises from reading.
    if (below(2) == 0) position.FenEnPassant = Coordinate{1 + below(8), 9};
    const std::u16string line = PositionLine(position);
    EXPECT_EQ(ReadPosition(line, position), AsCarried(position)) << Narrow(line);
    ASSERT_EQ(ReadPosition(line, StartPosition()), AsCarried(position)) << Narrow(line);
  }
}

// ---- Anything ----

TEST(AnyBytes, AreReadOrRefusedButNeverFail) {
  constexpr std::u16string_view kLikely = u"PTCADRptcadrRNBQKrnbqk12345678909//////// -BNWwbeE36aAjz";
  std::mt19937 random(11);
  int refused = 0;
  int read = 0;
  for (int n = 0; n < 100'000; ++n) {
    std::u16string line;
    for (auto length = random() % 90; length > 0; --length) {
      line += random() % 4 == 0 ? static_cast<char16_t>(random() % 256) : kLikely[random() % kLikely.size()];
    }
    const std::optional<ChessPosition> position = ReadPosition(line, Before());
    ++(position ? read : refused);
    if (position) {
      // Whatever was read can be written and read again.
      ASSERT_TRUE(ReadPosition(PositionLine(*position), Before())) << Narrow(line);
    }
  }
  EXPECT_GT(refused, 1'000);
  EXPECT_GT(read, 1'000);
}

TEST(AnyBytes, InTheMiddleOfASoundLineNeverFail) {
  std::mt19937 random(13);
  for (const std::u16string_view sound : {kStart, u"rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e3 0 1"sv}) {
    for (int n = 0; n < 50'000; ++n) {
      std::u16string line(sound);
      for (auto changes = 1 + (random() % 3); changes > 0; --changes) {
        line[random() % line.size()] = static_cast<char16_t>(random() % 256);
      }
      line.resize(random() % 2 == 0 ? line.size() : random() % line.size());
      const std::optional<ChessPosition> position = ReadPosition(line, StartPosition());
      if (position) {
        ASSERT_TRUE(ReadPosition(PositionLine(*position), Before())) << Narrow(line);
      }
    }
  }
}

}  // namespace
}  // namespace brontavia::test
