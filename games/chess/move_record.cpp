#include "games/chess/move_record.h"

#include "games/chess/attack.h"
#include "games/chess/square_text.h"
#include "text/decimal.h"

namespace brontavia {
namespace {

// Pawns and empty squares have no letter.
std::u16string_view LetterOf(int piece) {
  return KindOf(piece) > kPawn ? PieceName(piece).substr(0, 1) : std::u16string_view();
}

// The two texts grow side by side.
void Add(MoveRecord& record, std::u16string_view to_list, std::u16string_view to_sentence) {
  record.ListText += to_list;
  record.Sentence += to_sentence;
}

void AddSquare(MoveRecord& record, Coordinate square) { Add(record, SquareName(square), SquareName(square)); }

std::u16string ListPrefix(const ChessPosition& position, int piece) {
  return ColourOf(piece) == Colour::White ? Decimal(position.MoveNumber) + u". " : u", ";
}

// A move as such, without the prefix of the list.
MoveRecord RecordSteps(const ChessMove& move) {
  MoveRecord record;
  Add(record, LetterOf(move.Moved.Piece), PieceName(move.Moved.Piece));
  Add(record, u"", u" de ");
  AddSquare(record, move.Moved.Source);
  if (move.EnPassantCapture || move.Captured != kNoPiece) {
    Add(record, u"x", u" por ");
    if (move.Captured != kNoPiece) {
      Add(record, LetterOf(move.Captured), PieceName(move.Captured));
      Add(record, u"", u" de ");
    }
  } else {
    Add(record, u"-", u" a ");
  }
  AddSquare(record, move.Target);
  if (move.EnPassantCapture) Add(record, u"a.p.", u" al paso ");
  if (move.PromotionChoice != kNoPiece) {  // told in white, whoever moves
    Add(record, u"=", u" Promociona a ");
    Add(record, LetterOf(move.PromotionChoice), PieceName(move.PromotionChoice));
  }
  return record;
}

// Asked for the colour of the piece that stands there, should the king have been captured.
bool IsInCheck(const ChessPosition& position, Colour colour) {
  const std::optional<Coordinate>& king = position.KingSquares[colour];
  return king && IsSquareAttacked(position, *king, std::nullopt);
}

void AddCheck(MoveRecord& record, const ChessPosition& position) {
  if (!IsInCheck(position, OpponentOf(position.SideToMove))) return;
  Add(record, u"+", position.SideToMove == Colour::White ? u" Jaque" : u", Jaque");
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
  if (ColourOf(piece) == Colour::Black) record.ListText += u"\r\n";
  return record;
}

std::u16string MoveListStart(const ChessPosition& position) {
  return position.SideToMove == Colour::Black ? Decimal(position.MoveNumber) + u". (...)" : std::u16string();
}

}  // namespace brontavia
