#include "games/chess/move_record.h"

#include "games/chess/attack.h"
#include "games/chess/square_text.h"
#include "text/decimal.h"

namespace brontavia {
namespace {

// Pawns have no letter.
std::u16string LetterOf(int piece) {
  return KindOf(piece) > kPawn ? std::u16string(1, PieceInitial(piece)) : std::u16string();
}

std::u16string ListPrefix(const ChessPosition& position, int piece) {
  return ColourOf(piece) == kWhite ? Decimal(position.MoveNumber) + u". " : u", ";
}

// A move as such, without the prefix of the list.
MoveRecord RecordSteps(const ChessMove& move) {
  const int piece = move.Moved.Piece;
  MoveRecord record{.ListText = LetterOf(piece) + SquareName(move.Moved.Source),
                    .Sentence = std::u16string(PieceName(piece)) + u" de " + SquareName(move.Moved.Source)};
  if (move.EnPassantCapture || move.Captured != kNoPiece) {
    record.ListText += u"x" + LetterOf(move.Captured);
    record.Sentence += u" por ";
    if (move.Captured != kNoPiece) record.Sentence += std::u16string(PieceName(move.Captured)) + u" de ";
  } else {
    record.ListText += u"-";
    record.Sentence += u" a ";
  }
  record.ListText += SquareName(move.Target);
  record.Sentence += SquareName(move.Target);
  if (move.EnPassantCapture) {
    record.ListText += u"a.p.";
    record.Sentence += u" al paso ";
  }
  if (move.PromotionChoice != kNoPiece) {
    record.ListText += std::u16string(u"=") + PieceInitial(move.PromotionChoice);
    record.Sentence += u" Promociona a ";
    record.Sentence += PieceName(move.PromotionChoice);  // in white, whoever moves
  }
  return record;
}

// Asked for the colour of the piece that stands there, should the king have been captured.
bool IsInCheck(const ChessPosition& position, int colour) {
  return IsSquareAttacked(position, position.KingSquares[colour], kNoColour);
}

void AddCheck(MoveRecord& record, const ChessPosition& position) {
  if (!IsInCheck(position, OtherColour(position.SideToMove))) return;
  record.ListText += u"+";
  record.Sentence += position.SideToMove == kWhite ? u" Jaque" : u", Jaque";
}

}  // namespace

MoveRecord RecordMove(const ChessPosition& position, const ChessMove& move) {
  const int piece = move.Moved.Piece;
  MoveRecord record;
  const int king_columns = KindOf(piece) == kKing ? move.Target.Column - move.Moved.Source.Column : 0;
  if (king_columns == 2) {
    record = {.ListText = u"0-0", .Sentence = u"Enroque corto"};
  } else if (king_columns == -2) {
    record = {.ListText = u"0-0-0", .Sentence = u"Enroque largo"};
  } else {
    record = RecordSteps(move);
    AddCheck(record, position);
  }
  record.ListText.insert(0, ListPrefix(position, piece));
  if (ColourOf(piece) == kBlack) record.ListText += u"\r\n";
  return record;
}

std::u16string MoveListStart(const ChessPosition& position) {
  return position.SideToMove == kBlack ? Decimal(position.MoveNumber) + u". (...)" : std::u16string();
}

}  // namespace brontavia
