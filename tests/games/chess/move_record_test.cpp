#include "games/chess/move_record.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

struct Recorded {
  const char* Name;
  const char* Pieces;
  int Number;
  const char* Move;
  const char16_t* ListText;
  const char16_t* Sentence;
  const char* EnPassant = nullptr;  // the square onto which both sides may capture
};

void PrintTo(const Recorded& recorded, std::ostream* out) { *out << recorded.Name; }

class MoveRecords : public testing::TestWithParam<Recorded> {};

TEST_P(MoveRecords, HaveBothTexts) {
  const Recorded& recorded = GetParam();
  ChessPosition position = Placed(recorded.Pieces, "KQkq");
  position.MoveNumber = static_cast<std::int16_t>(recorded.Number);
  position.SideToMove = ColourOf(position.Board.At(Square(std::string_view(recorded.Move).substr(0, 2))));
  if (recorded.EnPassant != nullptr) {
    position.EnPassantSquares = {.White = Square(recorded.EnPassant), .Black = Square(recorded.EnPassant)};
  }
  const ChessMove move = Make(position, recorded.Move);
  const MoveRecord record = RecordMove(position, move);
  EXPECT_EQ(record.ListText, recorded.ListText);
  EXPECT_EQ(record.Sentence, recorded.Sentence);
}

constexpr Recorded kRecords[] = {
    // ---- Every piece ----
    {"WhitePawn", "Pe2", 1, "e2e4", u"1. e2-e4", u"Peón blanco de e2 a e4"},
    {"BlackPawn", "pe7", 1, "e7e5", u", e7-e5\r\n", u"Peón negro de e7 a e5"},
    {"WhiteKnight", "Ng1", 2, "g1f3", u"2. Cg1-f3", u"Caballo blanco de g1 a f3"},
    {"BlackKnight", "nb8", 2, "b8c6", u", Cb8-c6\r\n", u"Caballo negro de b8 a c6"},
    {"WhiteRook", "Ra1", 30, "a1a8", u"30. Ta1-a8", u"Torre blanca de a1 a a8"},
    {"BlackRook", "rh8", 30, "h8h1", u", Th8-h1\r\n", u"Torre negra de h8 a h1"},
    {"WhiteBishop", "Bc1", 4, "c1g5", u"4. Ac1-g5", u"Alfil blanco de c1 a g5"},
    {"BlackQueen", "qd8", 4, "d8h4", u", Dd8-h4\r\n", u"Dama negra de d8 a h4"},
    {"WhiteKing", "Ke1", 100, "e1e2", u"100. Re1-e2", u"Rey blanco de e1 a e2"},
    // ---- Captures ----
    {"BishopTakesKnight", "bc8 Nf5", 7, "c8f5", u", Ac8xCf5\r\n", u"Alfil negro de c8 por Caballo blanco de f5"},
    {"PawnTakesPawn", "Pe4 pd5", 2, "e4d5", u"2. e4xd5", u"Peón blanco de e4 por Peón negro de d5"},
    {"PawnTakesQueen", "pd5 Qe4", 2, "d5e4", u", d5xDe4\r\n", u"Peón negro de d5 por Dama blanca de e4"},
    {"RookTakesPawn", "Ra1 pa7", 9, "a1a7", u"9. Ta1xa7", u"Torre blanca de a1 por Peón negro de a7"},
    {"KingTakesRook", "ke8 Re7", 9, "e8e7", u", Re8xTe7\r\n", u"Rey negro de e8 por Torre blanca de e7"},
    // ---- En passant ----
    {"WhiteEnPassant", "Pe5 pd5", 3, "e5d6", u"3. e5xd6a.p.", u"Peón blanco de e5 por d6 al paso ", "d6"},
    {"BlackEnPassant", "pd4 Pe4", 3, "d4e3", u", d4xe3a.p.\r\n", u"Peón negro de d4 por e3 al paso ", "e3"},
    {"EnPassantOntoAPiece", "Pe5 nd6", 3, "e5d6", u"3. e5xCd6a.p.",
     u"Peón blanco de e5 por Caballo negro de d6 al paso ", "d6"},
    {"EnPassantOpensACheck", "Pe5 pd5 Ba1 kh8", 3, "e5d6", u"3. e5xd6a.p.+", u"Peón blanco de e5 por d6 al paso  Jaque",
     "d6"},
    // ---- Promotion: told in white, whoever moves ----
    {"WhitePromotes", "Pa7", 40, "a7a8q", u"40. a7-a8=D", u"Peón blanco de a7 a a8 Promociona a Dama blanca"},
    {"BlackPromotes", "pa2", 40, "a2a1q", u", a2-a1=D\r\n", u"Peón negro de a2 a a1 Promociona a Dama blanca"},
    {"WhitePromotesToAKnight", "Pa7", 40, "a7a8n", u"40. a7-a8=C",
     u"Peón blanco de a7 a a8 Promociona a Caballo blanco"},
    {"BlackPromotesToARook", "pa2", 40, "a2a1r", u", a2-a1=T\r\n", u"Peón negro de a2 a a1 Promociona a Torre blanca"},
    {"WhitePromotesWithACapture", "Pa7 rb8", 40, "a7b8b", u"40. a7xTb8=A",
     u"Peón blanco de a7 por Torre negra de b8 Promociona a Alfil blanco"},
    {"WhitePromotesWithCheck", "Pa7 kh8", 40, "a7a8q", u"40. a7-a8=D+",
     u"Peón blanco de a7 a a8 Promociona a Dama blanca Jaque"},
    // ---- Check ----
    {"WhiteGivesCheck", "Ra1 ke8", 12, "a1a8", u"12. Ta1-a8+", u"Torre blanca de a1 a a8 Jaque"},
    {"BlackGivesCheck", "rh8 Ke1", 12, "h8h1", u", Th8-h1+\r\n", u"Torre negra de h8 a h1, Jaque"},
    {"WhitePawnGivesNone", "Pd4 ke6", 12, "d4d5", u"12. d4-d5", u"Peón blanco de d4 a d5"},
    {"BlackPawnGivesCheck", "pe5 Kd3", 12, "e5e4", u", e5-e4+\r\n", u"Peón negro de e5 a e4, Jaque"},
    {"LaterWhitePawnHidesTheCheck", "Ra1 ke8 Pf7", 12, "a1a8", u"12. Ta1-a8", u"Torre blanca de a1 a a8"},
    {"CapturedKing", "Re1 ke8 ra8", 12, "e1e8", u"12. Te1xRe8+", u"Torre blanca de e1 por Rey negro de e8 Jaque"},
    // ---- Castling ----
    {"WhiteShort", "Ke1 Rh1", 5, "e1g1", u"5. 0-0", u"Enroque corto"},
    {"WhiteLong", "Ke1 Ra1", 5, "e1c1", u"5. 0-0-0", u"Enroque largo"},
    {"BlackShort", "ke8 rh8", 5, "e8g8", u", 0-0\r\n", u"Enroque corto"},
    {"BlackLong", "ke8 ra8", 5, "e8c8", u", 0-0-0\r\n", u"Enroque largo"},
    {"CastlingTellsNoCheck", "Ke1 Rh1 kf8", 5, "e1g1", u"5. 0-0", u"Enroque corto"},
    {"CastlingFromElsewhere", "Kg2 Rh1", 5, "g2g1", u"5. Rg2-g1", u"Rey blanco de g2 a g1"},
    {"OtherPiecesTwoColumnsAway", "Qe1", 5, "e1g1", u"5. De1-g1", u"Dama blanca de e1 a g1"},
};
INSTANTIATE_TEST_SUITE_P(MoveRecord, MoveRecords, testing::ValuesIn(kRecords),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(MoveRecord, TellsTheSideByThePieceAndTheCheckByTheTurn) {
  // White's piece in Black's turn, as free mode allows.
  ChessPosition position = Placed("Ra1 ke8 Kh8 rg1");
  position.SideToMove = Colour::Black;
  const ChessMove move = Make(position, "a1a8");
  const MoveRecord record = RecordMove(position, move);
  EXPECT_EQ(record.ListText, u"1. Ta1-a8");
  EXPECT_EQ(record.Sentence, u"Torre blanca de a1 a a8");
}

TEST(MoveList, HoldsAMoveOfEachSideInALine) {
  ChessPosition position = StartPosition();
  std::u16string list;
  for (const char* text : {"e2e4", "e7e5", "g1f3"}) {
    const ChessMove move = Make(position, text);
    list += RecordMove(position, move).ListText;
    PassTurn(position);
  }
  EXPECT_EQ(list, u"1. e2-e4, e7-e5\r\n2. Cg1-f3");
}

TEST(MoveList, BeginsWithAGapWhenBlackIsToMove) {
  ChessPosition position = Placed("");
  position.MoveNumber = 17;
  EXPECT_EQ(MoveListStart(position), u"");
  position.SideToMove = Colour::Black;
  EXPECT_EQ(MoveListStart(position), u"17. (...)");
}

}  // namespace
}  // namespace brontavia::test
