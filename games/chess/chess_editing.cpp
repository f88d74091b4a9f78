#include "games/chess/chess_editing.h"

#include <array>

#include "games/chess/attack.h"
#include "net/message_tokens.h"
#include "text/qt_text.h"
#include "text/rounding.h"

namespace brontavia {

using namespace Qt::StringLiterals;

// ---- Free mode ----

void ChessEditing::ToggleFreeMode() {
  if (!free_mode_ &&
      !host_.Confirm(
          u"¿Seguro que desea activar el modo libre? Este modo permite reajustar las fichas que hay sobre el tablero, "
          u"establecer valores sobre enroques y otros aspectos, así como parar y modificar los relojes,pero si está en "
          u"medio de una partida contra otra persona es posible que aparezcan errores por discordancias entre los dos "
          u"tableros, ya que los cambios que haga no se transmitirán. Si activa el modo libre se informará de ello a "
          u"su rival."_s,
          u"Activar modo libre"_s)) {
    return;
  }
  free_mode_ = !free_mode_;
  mode_changed_();
  if (!free_mode_ || host_.SendUntilComplete(message::kFreeMode.Token.toString())) return;
  free_mode_ = false;
  mode_changed_();
}

// ---- What it allows ----

void ChessEditing::EmptyBoard() {
  table_.Game.EmptyBoard();
  table_.Display.ShowPosition();
}

void ChessEditing::SetData() {
  const QString title = u"Establecer datos"_s;
  const auto ask = [&](const QString& prompt, int proposal) {
    return RoundHalfEven<std::int16_t>(Val(host_.Ask(prompt, title, QString::number(proposal))));
  };
  ChessGame& game = table_.Game;
  if (!game.SetMoveNumber(ask(u"Número de jugada actual: "_s, game.Position().MoveNumber))) return;
  table_.Display.ShowPositionBox();
  const auto side =
      ColourOfNumber(ask(u"Color que mueve ficha (0 blancas, 1 negras):"_s, NumberOf(game.Position().SideToMove)));
  if (!side) return;
  table_.Clocks.CatchUp();
  game.SetSideToMove(*side);
  table_.Display.ShowPositionBox();
  if (!game.SetHalfMoveClock(ask(u"Número de medios movimientos:"_s, game.Position().HalfMoveClock))) return;
  table_.Display.ShowPositionBox();
}

void ChessEditing::DeletePiece() {
  if (free_mode_) {
    PutOnClickedSquare(kNoPiece);
  } else {
    screen_.Beep();
  }
}

void ChessEditing::InsertPiece() {
  if (!free_mode_) return;
  // An entry for each code; 7 to 10 are no pieces.
  static const std::array kPieces{1, 2, 3, 4, 5, 6, 11, 12, 13, 14, 15, 16};
  QList<MenuItem> items;
  for (const int piece : kPieces) {
    items << MenuItem{.Caption = u'&' + ToQString(PieceName(piece)), .Name = u"MnuInsLis(%1)"_s.arg(piece)};
  }
  const auto chosen = host_.PopUp(u"MnuIns"_s, u"&Insertar"_s, items);
  if (chosen) PutOnClickedSquare(kPieces.at(static_cast<std::size_t>(*chosen)));
}

void ChessEditing::PutOnClickedSquare(int piece) {
  if (!clicked_square_) return;
  table_.Game.Put(*clicked_square_, piece);
  table_.Display.ShowPosition();
}

void ChessEditing::TellAttack() {
  const bool attacked = clicked_square_ && IsSquareAttacked(table_.Game.Position(), *clicked_square_, Colour::White);
  host_.Tell(attacked ? u"True"_s : u"False"_s);
}

}  // namespace brontavia
