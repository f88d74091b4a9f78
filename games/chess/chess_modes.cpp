// ChessFlow: the menu, the clocks, free mode and learning mode.
#include "games/chess/chess_flow.h"
#include "text/qt_text.h"
#include "text/rounding.h"

namespace brontavia {

using namespace Qt::StringLiterals;

void ChessFlow::Run(ChessCommand command) {
  RunUserAction([this, command] {
    switch (command) {
      case ChessCommand::OpenGame:
        return OpenGame();
      case ChessCommand::Save:
        return Save();
      case ChessCommand::SaveAs:
        return SaveAs();
      case ChessCommand::DeclareMate:
        return DeclareMate();
      case ChessCommand::Resign:
        return Resign();
      case ChessCommand::OfferDraw:
        return OfferDraw();
      case ChessCommand::FreeMode:
        return ToggleFreeMode();
      case ChessCommand::ToggleClocks:
        return ToggleClocks();
      case ChessCommand::SetClocks:
        return SetClocks();
      case ChessCommand::EmptyBoard:
        return EmptyBoard();
      case ChessCommand::SetData:
        return SetData();
      case ChessCommand::LearningMode:
        return ToggleLearningMode();
      case ChessCommand::TurnBoard:
        return TurnBoard();
    }
  });
}

bool ChessFlow::IsChecked(ChessCommand command) const {
  return (command == ChessCommand::FreeMode && free_mode_) ||
         (command == ChessCommand::LearningMode && learning_mode_) ||
         (command == ChessCommand::TurnBoard && board_flipped_);
}

// ---- Clocks ----

void ChessFlow::ShowClocks() { Screen().SetText(Box::TBReloj, ToQString(clocks_.Text())); }

void ChessFlow::ToggleClocks() {
  timer1_.CatchUp();
  timer1_.IsRunning() ? timer1_.Stop() : timer1_.Start();
  SetStatus(u"Relojes "_s + (timer1_.IsRunning() ? u" activados."_s : u" parados."_s));
}

void ChessFlow::SetClocks() {
  const QString title = u"Establecer tiempos"_s;
  PerColour<ClockTime> times;
  for (const Colour colour : kBothColours) {
    const QString side = colour == Colour::White ? u"blancas"_s : u"negras"_s;
    const auto time = ReadClockTime(Characters(Ask(u"Establezca el tiempo de las "_s + side + u"(minutos:segundos)",
                                                   title, ToQString(clocks_.Proposal(colour)))));
    if (!time) return;
    times[colour] = *time;
  }
  if (!clocks_.Set(times.White, times.Black)) {
    ShowBox(u"El tiempo es demasiado largo: un reloj no puede pasar de 32767 segundos."_s, title);
    return;
  }
  ShowClocks();
  AddMessage(u"Establecido "_s + ToQString(clocks_.Text()));
}

// ---- Modes ----

void ChessFlow::ToggleFreeMode() {
  if (!free_mode_) {
    const Button sure = ShowBox(
        u"¿Seguro que desea activar el modo libre? Este modo permite reajustar las fichas que hay sobre el tablero, "
        u"establecer valores sobre enroques y otros aspectos, así como parar y modificar los relojes,pero si está en "
        u"medio de una partida contra otra persona es posible que aparezcan errores por discordancias entre los dos "
        u"tableros, ya que los cambios que haga no se transmitirán. Si activa el modo libre se informará de ello a su "
        u"rival."_s,
        u"Activar modo libre"_s, Buttons::YesNo);
    if (sure == Button::No) return;
  }
  free_mode_ = !free_mode_;
  emit CommandsChanged();
  if (!free_mode_ || SendUntilComplete(message::kFreeMode.Token.toString())) return;
  free_mode_ = false;
  emit CommandsChanged();
}

void ChessFlow::ToggleLearningMode() {
  learning_mode_ = !learning_mode_;
  emit CommandsChanged();
  DrawBoard();
}

void ChessFlow::TurnBoard() {
  board_flipped_ = !board_flipped_;
  emit CommandsChanged();
  ShowHeaders();
  DrawBoard();
}

// ---- Editing ----

void ChessFlow::EmptyBoard() {
  game_.EmptyBoard();
  PositionEdited();
}

void ChessFlow::SetData() {
  const QString title = u"Establecer datos"_s;
  const auto ask = [&](const QString& prompt, int proposal) {
    return RoundHalfEven<std::int16_t>(Val(Ask(prompt, title, QString::number(proposal))));
  };
  const std::int16_t number = ask(u"Número de jugada actual: "_s, game_.Position().MoveNumber);
  if (!game_.SetMoveNumber(number)) return;
  ShowPositionBox();
  const auto side =
      ColourOfNumber(ask(u"Color que mueve ficha (0 blancas, 1 negras):"_s, NumberOf(game_.Position().SideToMove)));
  if (!side) return;
  timer1_.CatchUp();
  game_.SetSideToMove(*side);
  ShowPositionBox();
  const std::int16_t half_moves = ask(u"Número de medios movimientos:"_s, game_.Position().HalfMoveClock);
  if (!game_.SetHalfMoveClock(half_moves)) return;
  ShowPositionBox();
}

void ChessFlow::DeletePiece() {
  if (free_mode_) {
    PutOnClickedSquare(kNoPiece);
  } else {
    Screen().Beep();
  }
}

void ChessFlow::InsertPiece() {
  if (!free_mode_) return;
  // An entry for each code; 7 to 10 are no pieces.
  static const std::array kPieces{1, 2, 3, 4, 5, 6, 11, 12, 13, 14, 15, 16};
  QList<MenuItem> items;
  for (const int piece : kPieces) {
    items << MenuItem{.Caption = u'&' + ToQString(PieceName(piece)), .Name = u"MnuInsLis(%1)"_s.arg(piece)};
  }
  const auto chosen = PopUp(u"MnuIns"_s, u"&Insertar"_s, items);
  if (!chosen || !free_mode_) return;
  PutOnClickedSquare(kPieces.at(static_cast<std::size_t>(*chosen)));
}

void ChessFlow::PutOnClickedSquare(int piece) {
  if (!clicked_square_) return;
  game_.Put(*clicked_square_, piece);
  PositionEdited();
}

void ChessFlow::PositionEdited() {
  DrawBoard();
  ShowPositionBox();
}

void ChessFlow::DropSelection() {
  game_.DropSelection();
  DrawBoard();
}

}  // namespace brontavia
