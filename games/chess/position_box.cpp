#include "games/chess/position_box.h"

#include "games/chess/square_text.h"
#include "text/decimal.h"

namespace brontavia {
namespace {

std::u16string_view Answer(bool allowed) { return allowed ? u"Sí." : u"No. "; }

std::u16string CastlingText(const CastleRights& rights) {
  std::u16string text = u"Corto: ";
  text += Answer(rights.Short);
  text += u" Largo: ";
  text += Answer(rights.Long);
  return text + u"\r\n";
}

std::u16string EnPassantText(std::optional<Coordinate> square) {
  return square ? UpperSquareName(*square) : std::u16string(u"No.");
}

}  // namespace

std::u16string PositionBoxText(const ChessPosition& position) {
  std::u16string text = u"Jug. Nº " + Decimal(position.MoveNumber) + u". Mueven ";
  text += position.SideToMove == Colour::White ? u"Blancas. " : u"Negras. ";
  text += u"\r\n Enroques disponibles:\r\nBlancas. " + CastlingText(position.Castling.White);
  text += u"Negras. " + CastlingText(position.Castling.Black);
  text += u" Opción de comer al paso\r\nBlancas : " + EnPassantText(position.EnPassantSquares.White);
  return text + u"Negras: " + EnPassantText(position.EnPassantSquares.Black);
}

}  // namespace brontavia
