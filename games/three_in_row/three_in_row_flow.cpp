#include "games/three_in_row/three_in_row_flow.h"

#include <algorithm>

#include "text/qt_text.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr PerPlayer<ColourValue> PlayerColours{0x0000FF, 0x00FF00};  // red for the server, green for the client

constexpr BoardShape kFG1Shape{.Rows = kTerSide, .Columns = kTerSide, .CellWidth = 900, .CellHeight = 900};

CellIndex IndexOf(int cell) { return {.Row = cell / kTerSide, .Column = cell % kTerSide}; }

QString PlaceOf(int cell) {
  const CellIndex index = IndexOf(cell);
  return u"fila %1, columna %2"_s.arg(index.Row + 1).arg(index.Column + 1);
}

QString Told(TerMove move) {
  const QString target = PlaceOf(move.Target);
  return move.Lifted == kNoCell ? target : u"de "_s + PlaceOf(move.Lifted) + u" a " + target;
}

int CellOf(CellIndex index) { return index.Row * kTerSide + index.Column; }

}  // namespace

ThreeInRowFlow::ThreeInRowFlow(const Seams& seams, const RandomSeed& seed)
    : GameFlow(kFormTER, seams, seed), fg1_(kFG1Shape, [this](CellIndex cell) {
        const char16_t symbol = board_.At(CellOf(cell));
        return u"Fila %1, columna %2: %3"_s.arg(cell.Row + 1)
            .arg(cell.Column + 1)
            .arg(symbol == ThreeInRowBoard::kEmpty ? u"vacía"_s : QString(symbol));
      }) {
  On(message::kMove, [this](const QString& payload) { MoveReceived(payload); });
  On(message::kWon, [this](const QString&) { Lost(); });
}

void ThreeInRowFlow::ShowBoard() {
  for (int cell = 0; cell < kTerCells; ++cell) fg1_.SetCell(IndexOf(cell), ContentOf(cell));
}

void ThreeInRowFlow::ResetBoard() {
  board_.Reset();
  opponents_move_.reset();
  ShowBoard();
  SetGameOver(false);
  session_.RematchWanted = {};
  session_.CurrentTurn = session_.StartingPlayer = OpponentOf(session_.StartingPlayer);
}

void ThreeInRowFlow::ResetForSession() {
  ResetBoard();
  SetStatus({});  // the messages stay: they tell that the connection stands
}

void ThreeInRowFlow::ResetForNewGame() {
  ResetBoard();
  EmptyTexts();
}

void ThreeInRowFlow::DescribeSide(Player player, ScoreboardSide& side) const {
  side.Sign = player == Player::Server ? PlayerSign::X : PlayerSign::O;
}

KeyHints ThreeInRowFlow::Keys() const {
  return {{.Key = u"Intro"_s, .Use = board_.PlacingPhase() ? u"coloca la ficha"_s : u"quita la ficha"_s}};
}

// ---- The own move ----

void ThreeInRowFlow::BoardClicked(CellIndex cell) {
  RunUserAction([this, cell] {
    if (session_.GameOver) {
      AskForRematch();
    } else if (!session_.TurnSettled || session_.CurrentTurn != OwnPlayer()) {
      SetStatus(u"No es su turno de jugar."_s);
    } else {
      OwnClick(CellOf(cell));
    }
  });
}

void ThreeInRowFlow::OwnClick(int cell) {
  const ThreeInRowBoard before = board_;
  const TerClick outcome = board_.Click(OwnPlayer(), cell);
  ShowBoard();
  switch (outcome) {
    case TerClick::NotEmpty:
      SetStatus(u"Elija una casilla vacía para colocar su ficha"_s);
      return;
    case TerClick::NotOwnPiece:
      SetStatus(u"Pulse sobre una de sus propias fichas para moverla *"_s);
      return;
    case TerClick::Lifted:
      SetStatus(u"Coloque la ficha quitada en un sitio diferente"_s);
      return;
    case TerClick::PutBack:
      SetStatus(u"El movimiento realizado no es válido, vuelva a quitar una ficha"_s);
      return;
    case TerClick::Moved:
      FinishOwnMove(before);
      return;
  }
}

void ThreeInRowFlow::FinishOwnMove(const ThreeInRowBoard& before) {
  const bool won = board_.HasLine();
  const QString move = message::kMove.Token + ToQString(TerMoveText(board_.Move()));
  const bool sent = Send(move) && (!won || Send(message::kWon.Token + QString::number(NumberOf(OwnPlayer()))));
  if (!sent) {
    board_ = before;
    ShowBoard();
    return;
  }
  opponents_move_.reset();
  if (!won) {
    board_.EndMove(OwnPlayer());
    session_.CurrentTurn = OtherPlayer();
    ShowBoard();
    AddMessage(u"Turno de jugar para "_s + session_.PlayerNames.Padded(session_.CurrentTurn));
    return;
  }
  ShowBoard();
  ShowBox(u"¡Ha ganado! Consiguió hacer tres en raya antes que su rival."_s + kCrLf +
              u"Pulse sobre el tablero para continuar.",
          u"Enhorabuena"_s);
  AddPoint(OwnPlayer());
  SetGameOver(true);
}

// ---- What the other player did ----

void ThreeInRowFlow::MoveReceived(const QString& payload) {
  const auto move = ReadTerMove(Characters(payload));
  if (!move) throw MalformedMessage("no move on this board");
  board_.Apply(session_.CurrentTurn, *move);
  opponents_move_ = move;
  ShowBoard();
  Screen().Announce(session_.PlayerNames.Trimmed(session_.CurrentTurn) + u": "_s + Told(*move));
  if (session_.GameOver) return;
  session_.CurrentTurn = OpponentOf(session_.CurrentTurn);
  const QString name = session_.PlayerNames.Trimmed(session_.CurrentTurn);
  AddMessage(u" Turno de "_s + name + u" para jugar.");
  SetStatus(name + u", le toca jugar");
  board_.BeginMove(OwnPlayer());
  SetStatus(board_.PlacingPhase() ? u"Coloque una ficha en el tablero"_s : u"Mueva una ficha del tablero"_s);
}

void ThreeInRowFlow::Lost() {
  EmptyTexts();
  // The winner is whoever has the turn here: the sender, unless its last move came in a read of its own and has
  // already passed the turn.
  ShowBox(session_.PlayerNames.Padded(session_.CurrentTurn) + u" ha conseguido tres en raya antes que usted." + kCrLf +
              u"Pulse sobre el tablero para continuar.",
          u"Ha perdido"_s);
  AddPoint(session_.CurrentTurn);
  SetGameOver(true);
  Screen().SetText(Box::TBMensajes, {});
}

// ---- What the board shows ----

void ThreeInRowFlow::SetGameOver(bool over) {
  session_.GameOver = over;
  fg1_.SetWaitsForClick(over);
}

CellContent ThreeInRowFlow::ContentOf(int cell) const {
  const char16_t symbol = board_.At(cell);
  CellContent content{.Text = QString(symbol)};
  if (symbol == ThreeInRowBoard::PlayerSymbols.Server) content.ForeColour = PlayerColours.Server;
  if (symbol == ThreeInRowBoard::PlayerSymbols.Client) content.ForeColour = PlayerColours.Client;
  const auto line = board_.Line();
  if (line && std::ranges::find(*line, cell) != line->end()) content.Marks |= Mark::WinningLine;
  if (opponents_move_ && (cell == opponents_move_->Lifted || cell == opponents_move_->Target)) {
    content.Marks |= Mark::LastMove;
  }
  // It stays told after a move that has won.
  if (cell == board_.PosQuitada() && !line) {
    content.Marks |= Mark::Lifted;
    content.Drawing = ThreeInRowBoard::PlayerSymbols[OwnPlayer()];
  }
  return content;
}

}  // namespace brontavia
