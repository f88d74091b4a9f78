#include "games/chess/chess_flow.h"

#include <QScopedValueRollback>
#include <utility>

#include "games/chess/chess_messages.h"
#include "text/qt_text.h"

namespace brontavia {

using namespace Qt::StringLiterals;

ChessFlow::ChessFlow(const Seams& seams, const RandomSeed& seed, SecondTimer::Now now)
    : GameFlow(kFormAje, seams, seed),
      display_(game_, Screen()),
      clocks_(*this, Screen(), game_, std::move(now)),
      endings_(*this, Screen(), session_, game_),
      saved_games_(*this, Screen(), session_, {game_, display_, clocks_}),
      editing_(*this, Screen(), {game_, display_, clocks_}, [this] { emit CommandsChanged(); }) {
  AnswerMessages();
  connect(&FG1(), &BoardModel::CurrentCellChanged, this, [this](CellIndex /*previous*/, CellIndex current) {
    if (moving_cursor_) return;
    RunUserAction([this, current] { SetStatus(FG1().Description(current)); });
  });
}

void ChessFlow::AnswerMessages() {
  On(message::kChessMove, [this](const QString& payload) { ReplayMove(payload); });
  On(message::kMateDeclared, [this](const QString&) { endings_.MateDeclared(); });
  On(message::kResigned, [this](const QString&) { endings_.OpponentResigned(); });
  On(message::kDrawOffered, [this](const QString&) { endings_.DrawOffered(); });
  On(message::kDrawAccepted, [this](const QString&) { endings_.DrawAccepted(); });
  On(message::kDrawRefused, [this](const QString&) { endings_.DrawRefused(); });
  On(message::kResumeAsked, [this](const QString& description) { saved_games_.Asked(description); });
  On(message::kResumeAccepted, [this](const QString&) { saved_games_.Accepted(); });
  On(message::kResumeRefused, [this](const QString&) { saved_games_.Refused(); });
  On(message::kPosition, [this](const QString& line) { saved_games_.PositionReceived(line); });
  On(message::kResumedTurns, [this](const QString& payload) {
    if (!saved_games_.TurnsReceived(payload)) throw MalformedMessage("no turns of two players");
  });
  On(message::kFreeMode, [this](const QString&) {
    ShowBox(session_.PlayerNames.Trimmed(OtherPlayer()) + u" ha activado el modo libre.", {});
  });
}

// ---- A new game ----

void ChessFlow::ResetBoard() {
  game_.StartNewGame();
  endings_.Reset();
  session_.RematchWanted = {};
  session_.CurrentTurn = session_.StartingPlayer = OpponentOf(session_.StartingPlayer);
  clocks_.Reset();
  display_.ShowNewGame();
}

void ChessFlow::ResetForSession() {
  ResetBoard();
  SetStatus({});  // the messages stay: they tell that the connection stands
}

void ChessFlow::ResetForNewGame() {
  ResetBoard();
  EmptyTexts();
}

void ChessFlow::DescribeSide(Player player, ScoreboardSide& side) const {
  const bool white = player == WhitePlayer();
  const Colour colour = white ? Colour::White : Colour::Black;
  side.Sign = white ? PlayerSign::WhiteKing : PlayerSign::BlackKing;
  side.Clock = {.Time = ToQString(clocks_.Times().Text(colour)),
                .Runs = clocks_.Running() && colour == game_.Position().SideToMove};
}

KeyHints ChessFlow::Keys() const {
  return {{.Key = u"Intro"_s, .Use = u"elige y mueve"_s}, {.Key = u"Esc"_s, .Use = u"suelta la pieza"_s}};
}

void ChessFlow::FirstTurnSettled() {
  // Where the eye starts: the row on which the own pieces stand.
  MoveCursor({.Column = 1, .Row = BackRow(WhitePlayer() == OwnPlayer() ? Colour::White : Colour::Black)});
}

void ChessFlow::ShowState() {
  GameFlow::ShowState();
  FG1().SetWaitsForClick(session_.GameOver);
}

// ---- The player acts ----

void ChessFlow::BoardClicked(CellIndex cell) {
  RunUserAction([this, cell] { ClickSquare(display_.SquareOf(cell)); });
}

void ChessFlow::BoardKeyPressed(int key) {
  RunUserAction([this, key] {
    switch (key) {
      case Qt::Key_Escape:
        DropSelection();
        SetStatus(u"Selección cancelada"_s);
        break;
      case Qt::Key_Delete:
        editing_.DeletePiece();
        break;
      case Qt::Key_Menu:
        editing_.InsertPiece();
        break;
      case Qt::Key_F5:
        editing_.TellAttack();
        break;
      default:
        break;
    }
  });
}

void ChessFlow::Run(ChessCommand command) {
  RunUserAction([this, command] {
    switch (command) {
      case ChessCommand::OpenGame:
        return saved_games_.Open();
      case ChessCommand::Save:
        return saved_games_.Save();
      case ChessCommand::SaveAs:
        return saved_games_.SaveAs();
      case ChessCommand::DeclareMate:
        return endings_.DeclareMate();
      case ChessCommand::Resign:
        return endings_.Resign();
      case ChessCommand::OfferDraw:
        return endings_.OfferDraw();
      case ChessCommand::LearningMode:
        display_.ToggleLearningMode();
        emit CommandsChanged();
        return;
      case ChessCommand::TurnBoard:
        display_.TurnBoard();
        emit CommandsChanged();
        return;
      case ChessCommand::FreeMode:
        return editing_.ToggleFreeMode();
      case ChessCommand::ToggleClocks:
        return clocks_.Toggle();
      case ChessCommand::SetClocks:
        return clocks_.AskTimes();
      case ChessCommand::EmptyBoard:
        return editing_.EmptyBoard();
      case ChessCommand::SetData:
        return editing_.SetData();
    }
  });
}

bool ChessFlow::IsChecked(ChessCommand command) const {
  return (command == ChessCommand::FreeMode && FreeMode()) ||
         (command == ChessCommand::LearningMode && LearningMode()) ||
         (command == ChessCommand::TurnBoard && BoardFlipped());
}

// ---- Moving ----

void ChessFlow::ClickSquare(Coordinate square) {
  editing_.NoteClicked(square);
  if (session_.GameOver) {
    AskForRematch();
    return;
  }
  if (!OwnTurn() && !replaying_) {
    SetStatus(u"No es su turno de mover"_s);
    return;
  }
  const ChessGame before = game_;
  const ChessClickOutcome outcome = game_.Click(square, FreeMode());
  switch (outcome.What) {
    case ChessClick::Nothing:
      return;
    case ChessClick::PickedUp: {
      display_.DrawBoard();
      const int piece = game_.Selection().Piece;
      SetStatus(ToQString(PieceName(piece)) + u" seleccionad" + PieceEnding(piece));
      return;
    }
    case ChessClick::OtherSide:
      SetStatus(u"Le toca mover a las "_s +
                (game_.Position().SideToMove == Colour::White ? u"blancas."_s : u"negras."_s));
      return;
    case ChessClick::Dropped:
      display_.DrawBoard();
      SetStatus(u"Selección cancelada"_s);
      return;
    case ChessClick::NotATarget:
      SetStatus(u"Movimiento incorrecto. "_s);
      return;
    case ChessClick::KingAttacked:
      display_.DrawBoard();
      SetStatus(u"Movimiento incorrecto. El rey quedaría en jaque."_s);
      return;
    case ChessClick::Moved:
      MoveStands(*outcome.Move, before);
      return;
  }
}

void ChessFlow::MoveStands(ChessMove move, const ChessGame& before) {
  const bool replayed = replaying_;  // other moves may arrive while a promotion is chosen
  int promotion = kNoPiece;
  if (move.PromotionPending) {
    display_.DrawBoard();  // the pawn has arrived
    const auto choice = AskForPromotion();
    if (!choice) return;
    promotion = *choice;
  }
  game_.CompleteMove(move, promotion);
  if (!replayed) {
    // What cannot be sent has not happened, and so the box that tells it finds it.
    const ChessGame moved = std::exchange(game_, before);
    if (!Send(message::kChessMove.Token + ToQString(MoveText(move)))) {
      display_.DrawBoard();
      return;
    }
    game_ = moved;
  }
  if (move.EnPassantOffered) SetStatus(u"posibilidad al paso"_s);
  display_.ShowMove(move);
  clocks_.MoveStands();
  game_.PassTurn();
  session_.CurrentTurn = OpponentOf(session_.CurrentTurn);
}

std::optional<int> ChessFlow::AskForPromotion() {
  SetStatus(u"Indique por qué ficha desea sustituir el peón promocionado"_s);
  // In the order of kPromotionChoices.
  const QList<MenuItem> pieces{{.Caption = u"&Torre"_s, .Name = u"MnuProLis(2)"_s},
                               {.Caption = u"&Caballo"_s, .Name = u"MnuProLis(3)"_s},
                               {.Caption = u"&Alfil"_s, .Name = u"MnuProLis(4)"_s},
                               {.Caption = u"&Dama"_s, .Name = u"MnuProLis(5)"_s}};
  const int position = game_.PositionsSetUp();
  std::optional<int> chosen;
  while (!chosen) {
    chosen = PopUp(u"MnuPromo"_s, u"&Promoción"_s, pieces);
    if (position != game_.PositionsSetUp()) return std::nullopt;
  }
  return kPromotionChoices.at(static_cast<std::size_t>(*chosen));
}

void ChessFlow::ReplayMove(const QString& payload) {
  const auto move = ReadMove(Characters(payload));
  if (!move) throw MalformedMessage("no move on this board");
  DropSelection();
  for (const Coordinate square : {move->Source, move->Target}) {
    const QScopedValueRollback replaying(replaying_, true);
    MoveCursor(square);
    ClickSquare(square);
  }
}

void ChessFlow::MoveCursor(Coordinate square) {
  const QScopedValueRollback moving(moving_cursor_, true);
  FG1().SetCurrentCell(IndexOf(square));
}

void ChessFlow::DropSelection() {
  game_.DropSelection();
  display_.DrawBoard();
}

// ---- For the parts ----

bool ChessFlow::Confirm(const QString& text, const QString& title) {
  return ShowBox(text, title, Buttons::YesNo) == Button::Yes;
}

QString ChessFlow::Ask(const QString& prompt, const QString& title, const QString& proposal) {
  return GameFlow::Ask(prompt, title, proposal);
}

std::optional<int> ChessFlow::PopUp(const QString& menu, const QString& title, const QList<MenuItem>& items) {
  return GameFlow::PopUp(menu, title, items);
}

}  // namespace brontavia
