#include "games/chess/chess_flow.h"

#include <QScopedValueRollback>
#include <array>
#include <utility>

#include "games/chess/attack.h"
#include "games/chess/chess_messages.h"
#include "games/chess/move_record.h"
#include "games/chess/piece_letters.h"
#include "games/chess/position_box.h"
#include "games/chess/square_text.h"
#include "text/qt_text.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSquareSize = 600;  // twips
constexpr int kHeaderSize = 300;

QString ColourOfSide(Colour colour) { return colour == Colour::White ? u"blancas"_s : u"negras"_s; }

}  // namespace

ChessFlow::ChessFlow(const Seams& seams, const RandomSeed& seed, SecondTimer::Now now)
    : GameFlow(kFormAje, seams, seed),
      fg1_({.Rows = kBoardSide + 1,
            .Columns = kBoardSide + 1,
            .HeaderCells = 1,
            .CellWidth = kSquareSize,
            .CellHeight = kSquareSize,
            .HeaderSize = kHeaderSize},
           [this](CellIndex cell) { return DescribeCell(cell); }),
      timer1_(std::move(now)) {
  On(message::kChessMove, [this](const QString& payload) { ReplayMove(payload); });
  On(message::kMateDeclared, [this](const QString&) { MateDeclared(); });
  On(message::kResigned, [this](const QString&) { OpponentResigned(); });
  On(message::kDrawOffered, [this](const QString&) { DrawOffered(); });
  On(message::kDrawAccepted, [this](const QString&) {
    DrawAgreed(
        u"El otro jugador ha aceptado su propuesta. La partida termina en tablas, pulse en el tablero para "
        u"continuar."_s);
  });
  On(message::kDrawRefused, [this](const QString&) {
    ShowBox(u"El otro jugador no ha aceptado su propuesta. Realice su siguiente movimiento."_s, {});
  });
  On(message::kResumeAsked, [this](const QString& description) { ResumeAsked(description); });
  On(message::kResumeAccepted, [this](const QString&) { ResumeAccepted(); });
  On(message::kResumeRefused, [this](const QString&) { ResumeRefused(); });
  On(message::kPosition, [this](const QString& line) {
    if (const auto position = ReadLine(line)) LoadPosition(*position);
  });
  On(message::kResumedTurns, [this](const QString& payload) { TurnsReceived(payload); });
  On(message::kFreeMode, [this](const QString&) { ShowBox(OtherName() + u" ha activado el modo libre.", {}); });
  connect(&fg1_, &BoardModel::CurrentCellChanged, this, [this](CellIndex /*previous*/, CellIndex current) {
    if (replaying_) return;
    RunUserAction([this, current] { SetStatus(DescribeCell(current)); });
  });
  connect(&timer1_, &SecondTimer::Passed, this, [this](int seconds) {
    RunHandler([this, seconds] {
      clocks_.Tick(game_.Position().SideToMove, seconds);
      ShowClocks();
    });
  });
}

void ChessFlow::LoadGame() {
  ShowHeaders();
  ResetBoard();
}

// ---- A new game ----

void ChessFlow::ResetBoard() {
  game_.StartNewGame();
  last_move_.reset();
  winner_.reset();
  session_.GameOver = false;
  session_.RematchWanted = {};
  session_.CurrentTurn = session_.StartingPlayer = OpponentOf(session_.StartingPlayer);
  timer1_.Stop();
  clocks_.Reset();
  DrawBoard();
  ShowClocks();
  ShowPositionBox();
  Screen().SetText(Box::TBJugadas, {});
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
  side.Sign = player == WhitePlayer() ? PlayerSign::WhiteKing : PlayerSign::BlackKing;
}

KeyHints ChessFlow::Keys() const {
  return {{.Key = u"Intro"_s, .Use = u"elige y mueve"_s}, {.Key = u"Esc"_s, .Use = u"suelta la pieza"_s}};
}

// ---- The own move ----

void ChessFlow::BoardClicked(CellIndex cell) {
  RunUserAction([this, cell] { ClickSquare(SquareOf(cell)); });
}

void ChessFlow::BoardKeyPressed(int key) {
  RunUserAction([this, key] {
    switch (key) {
      case Qt::Key_Escape:
        DropSelection();
        SetStatus(u"Selección cancelada"_s);
        break;
      case Qt::Key_Delete:
        DeletePiece();
        break;
      case Qt::Key_Menu:
        InsertPiece();
        break;
      case Qt::Key_F5:
        ShowBox(clicked_square_ && IsSquareAttacked(game_.Position(), *clicked_square_, Colour::White) ? u"True"_s
                                                                                                       : u"False"_s,
                {});
        break;
      default:
        break;
    }
  });
}

void ChessFlow::ClickSquare(Coordinate square) {
  clicked_square_ = square;
  if (session_.GameOver) {
    AskForRematch();
    return;
  }
  if (!OwnTurn() && !replaying_) {
    SetStatus(u"No es su turno de mover"_s);
    return;
  }
  const ChessGame before = game_;
  const ChessClickOutcome outcome = game_.Click(square, free_mode_);
  switch (outcome.What) {
    case ChessClick::Nothing:
      return;
    case ChessClick::PickedUp: {
      DrawBoard();
      const int piece = game_.Selection().Piece;
      SetStatus(ToQString(PieceName(piece)) + u" seleccionad" + PieceEnding(piece));
      return;
    }
    case ChessClick::OtherSide:
      SetStatus(u"Le toca mover a las "_s + ColourOfSide(game_.Position().SideToMove) + u'.');
      return;
    case ChessClick::Dropped:
      DrawBoard();
      SetStatus(u"Selección cancelada"_s);
      return;
    case ChessClick::NotATarget:
      SetStatus(u"Movimiento incorrecto. "_s);
      return;
    case ChessClick::KingAttacked:
      DrawBoard();
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
    DrawBoard();  // the pawn has arrived
    const auto choice = AskForPromotion();
    if (!choice) return;
    promotion = *choice;
  }
  game_.CompleteMove(move, promotion);
  if (!replayed) {
    // What cannot be sent has not happened, and so the box that tells it finds it.
    const ChessGame moved = std::exchange(game_, before);
    if (!Send(message::kChessMove.Token + ToQString(MoveText(move)))) {
      DrawBoard();
      return;
    }
    game_ = moved;
  }
  if (move.EnPassantOffered) SetStatus(u"posibilidad al paso"_s);
  last_move_ = move;
  DrawBoard();
  const MoveRecord record = RecordMove(game_.Position(), move);
  AddMessage(ToQString(record.Sentence));
  Screen().AppendText(Box::TBJugadas, ToQString(record.ListText));
  ShowPositionBox();
  timer1_.CatchUp();  // what has passed is the mover's
  if (game_.Position().SideToMove == Colour::White && !timer1_.IsRunning()) timer1_.Start();
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

// ---- The opponent's move ----

void ChessFlow::ReplayMove(const QString& payload) {
  const auto move = ReadMove(Characters(payload));
  if (!move) throw MalformedMessage("no move on this board");
  DropSelection();
  for (const Coordinate square : {move->Source, move->Target}) {
    const QScopedValueRollback replaying(replaying_, true);
    fg1_.SetCurrentCell(IndexOf(square));
    ClickSquare(square);
  }
}

// ---- What the window shows ----

CellIndex ChessFlow::IndexOf(Coordinate square) const {
  const Coordinate cell = ThroughGrid(square, board_flipped_);
  return {.Row = cell.Row, .Column = cell.Column};
}

Coordinate ChessFlow::SquareOf(CellIndex cell) const {
  return ThroughGrid({.Column = cell.Column, .Row = cell.Row}, board_flipped_);
}

void ChessFlow::ShowHeaders() {
  for (int place = 1; place <= kBoardSide; ++place) {
    const Coordinate shown = SquareOf({.Row = place, .Column = place});
    fg1_.SetCell({.Row = 0, .Column = place}, {.Text = QChar(u'a' + shown.Column - 1)});
    fg1_.SetCell({.Row = place, .Column = 0}, {.Text = QString::number(shown.Row)});
  }
}

void ChessFlow::DrawBoard() {
  const ChessBoard& board = game_.Position().Board;
  for (int column = 1; column <= kBoardSide; ++column) {
    for (int row = 1; row <= kBoardSide; ++row) {
      const Coordinate square{.Column = column, .Row = row};
      CellContent content;
      if (const int piece = board.At(square); piece != kNoPiece)
        content.Text = QChar(kSpanishLetters.at(static_cast<std::size_t>(piece - 1)));
      if (game_.HasSelection() && square == game_.Selection().Source) content.Marks |= Mark::Selected;
      if (last_move_ && (square == last_move_->Moved.Source || square == last_move_->Target)) {
        content.Marks |= Mark::LastMove;
      }
      if (learning_mode_ && game_.Targets().Holds(square)) content.Marks |= Mark::Reachable;
      fg1_.SetCell(IndexOf(square), content);
    }
  }
}

void ChessFlow::ShowPositionBox() { Screen().SetText(Box::TBEntorno, ToQString(PositionBoxText(game_.Position()))); }

QString ChessFlow::DescribeCell(CellIndex cell) const {
  if (fg1_.IsHeader(cell)) return fg1_.Cell(cell).Text;
  return ToQString(DescribeSquare(game_.Position().Board, SquareOf(cell), game_.Targets(), learning_mode_));
}

}  // namespace brontavia
