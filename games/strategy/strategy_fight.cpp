// StrategyFlow from the first move to the taken flag.
#include "games/cell_name.h"
#include "games/strategy/move_message.h"
#include "games/strategy/movement.h"
#include "games/strategy/strategy_flow.h"
#include "text/qt_text.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

QString NameOf(Rank rank) { return ToQString(RankName(rank)); }

// How an attack of `attacker` on `defender` (ranks) went, for the attacker's player.
QString CombatReport(Combat combat, Rank attacker, Rank defender) {
  QString opening = u"El "_s + NameOf(attacker);
  const QString faces = opening + u" se enfrenta a un " + NameOf(defender);
  switch (combat) {
    case Combat::FlagTaken:
      return opening + u" ha capturado la bandera!!!";
    case Combat::BothDestroyed:
      return opening + u" se encuentra con un enemigo de su mismo rango y ambos son destruidos";
    case Combat::BombDisarmed:
      return opening + u" desactiva la bomba y sigue su camino";
    case Combat::BombExplodes:
      return opening + u" encuentra una bomba y muere.";
    case Combat::Defeat:
      return faces + u" y muere en el intento.";
    case Combat::Victory:
      return faces + u" y sale vencedor.";
    case Combat::MarshalKilled:
      return opening + u" ha conseguido su objetivo, matar al mariscal!!!";
    case Combat::SpyKilled:
      return faces + u" y muere";
  }
  return opening;
}

// What a received move did, without the name of its player; codes and cells as the receiver's board has them.
QString MoveReport(CombatResult result, CellCode attacker, CellCode defender, Coordinate from, Coordinate to) {
  const QString piece = u" con un "_s + ToQString(CellContentName(attacker)) + u" de " + CellName(from);
  const QString target = ToQString(CellContentName(defender)) + u" de " + CellName(to);
  if (result == CombatResult::BothDestroyed) {
    return u" ataca"_s + piece + u" contra otro  " + target + u" y ambos son destruídos. Es su turno.";
  }
  const auto defending = PieceOf(defender);
  if (result == CombatResult::AttackerDestroyed && defending && defending->Rank == Rank::Bomb) {
    return u" avanza"_s + piece + u" contra la bomba de " + CellName(to) + u" y resulta muerto. Es su turno.";
  }
  if (result == CombatResult::AttackerDestroyed) {
    return u" ataca"_s + piece + u" al " + target + u" pero es derrotado. Es su turno.";
  }
  if (defender == kEmptyLand) {
    return u" mueve una ficha de "_s + CellName(from) + u" a " + CellName(to) + u". Es su turno.";
  }
  return u" ataca"_s + piece + u" al " + target + u" y le vence. Es su turno.";
}

// Nothing where there is no piece: what a peer sends need not be a move of the game.
std::optional<FoughtPiece> FoughtAs(CellCode code, bool fell) {
  const auto piece = PieceOf(code);
  if (!piece) return std::nullopt;
  return FoughtPiece{.Name = NameOf(piece->Rank), .Emblem = ToQString(RankEmblem(piece->Rank)), .Fell = fell};
}

// Nothing when the opponent's army has arrived over it.
std::optional<Coordinate> FindFlag(const StrategyBoard& board, Player side) {
  for (Coordinate cell{.Column = 1, .Row = 1}; cell.Row <= board.Variant().Rows; ++cell.Row) {
    for (cell.Column = 1; cell.Column <= board.Variant().Columns; ++cell.Column) {
      if (board.PieceAt(cell) == Piece{.Side = side, .Rank = Rank::Flag}) return cell;
    }
  }
  return std::nullopt;
}

}  // namespace

// ---- The own move ----

void StrategyFlow::ClickToFight(Coordinate cell) {
  if (!OwnTurn()) {
    SetStatus(u"No es su turno de jugar."_s);
  } else if (selection_) {
    ClickTarget(*selection_, cell);
  } else {
    Select(cell);
  }
}

void StrategyFlow::Select(Coordinate cell) {
  const auto piece = board_.PieceAt(cell);
  if (!piece) {
    SetStatus(u"Casilla vacía"_s);
  } else if (piece->Side != OwnPlayer()) {
    SetStatus(u"No puede mover fichas del otro jugador"_s);
  } else if (piece->Rank == Rank::Flag) {
    SetStatus(u"La bandera no se puede mover"_s);
  } else if (!IsMovable(piece->Rank)) {
    SetStatus(u"Las bombas no se pueden mover"_s);
  } else {
    selection_ = {.Cell = cell, .Piece = *piece};
    DrawCell(cell);
    SetStatus(NameOf(piece->Rank) + u" seleccionado.");
  }
}

void StrategyFlow::ClearSelection() {
  if (const auto was = std::exchange(selection_, {})) DrawCell(was->Cell);
}

void StrategyFlow::ClickTarget(Selection selected, Coordinate cell) {
  const auto piece = board_.PieceAt(cell);
  if (cell == selected.Cell) {
    SetStatus(u"Selección cancelada"_s);
    ClearSelection();
  } else if (board_.At(cell) == kWaterCell) {
    SetStatus(u"No se pueden mover fichas al agua. selección cancelada."_s);
    ClearSelection();
  } else if (!InRange(selected, cell)) {
    return;
  } else if (!piece) {
    MoveTo(selected, cell);
  } else if (piece->Side == OwnPlayer()) {
    SetStatus(u"No puede atacar a miembros de su propio ejército. Selección cancelada."_s);
    ClearSelection();
  } else {
    Attack(selected, cell, piece->Rank);
  }
}

bool StrategyFlow::InRange(Selection selected, Coordinate cell) {
  switch (CheckMoveRange(board_, selected.Piece.Rank, selected.Cell, cell)) {
    case MoveRange::Valid:
      return true;
    case MoveRange::Diagonal:
      SetStatus(u"No se puede mover en diagonal."_s);
      return false;
    case MoveRange::Blocked:
      SetStatus(u"Hay algún obstáculo en el camino a recorrer que impide llegar hasta ahí"_s);
      return false;
    case MoveRange::TooFar:
      SetStatus(u"Un "_s + NameOf(selected.Piece.Rank) +
                u" no puede moverse más de una casilla en un turno ni mover en diagonal.");
      return false;
  }
  return false;
}

void StrategyFlow::MoveTo(Selection selected, Coordinate cell) {
  const QString moved = NameOf(selected.Piece.Rank) + u" movido";
  if (CarryOut(selected, cell, CombatResult::AttackerWins) != Carried::Out) return;
  SetStatus(moved);
  AddMessage(moved + u". Le toca jugar a" + PaddedName(OpponentOf(session_.CurrentTurn)));
  PassTurnOn();
}

void StrategyFlow::Attack(Selection selected, Coordinate cell, Rank defender) {
  const Combat combat = ResolveCombat(selected.Piece.Rank, defender);
  const QString status = Status();
  SetStatus(CombatReport(combat, selected.Piece.Rank, defender));
  if (combat == Combat::FlagTaken) {
    if (Send(message::kWon.Token.toString())) {
      TakeFlag(selected, cell);
    } else {
      SetStatus(status);  // no such thing has come about
    }
    return;
  }
  const Carried carried = CarryOut(selected, cell, ResultOf(combat));
  if (carried == Carried::NotOut) SetStatus(status);
  if (carried != Carried::Out) return;
  AddMessage(u"Le toca jugar a"_s + PaddedName(OpponentOf(session_.CurrentTurn)));
  PassTurnOn();
}

StrategyFlow::Fighters StrategyFlow::FightOf(Player mover, CellCode attacker, CellCode defender, CombatResult result) {
  Fighters fought;
  if (defender == kEmptyLand && result == CombatResult::AttackerWins) return fought;
  fought[mover] =
      FoughtAs(attacker, result == CombatResult::AttackerDestroyed || result == CombatResult::BothDestroyed);
  fought[OpponentOf(mover)] = FoughtAs(defender, result != CombatResult::AttackerDestroyed);
  return fought;
}

void StrategyFlow::MarkLastMove(const std::optional<LastMove>& move) {
  for (const auto& marked : {std::exchange(last_move_, move), move}) {
    if (!marked) continue;
    DrawMarks(marked->From);
    DrawMarks(marked->To);
  }
}

StrategyFlow::Carried StrategyFlow::CarryOut(Selection selected, Coordinate target, CombatResult result) {
  const Coordinate origin = selected.Cell;
  const CellCode before = board_.At(target);
  const auto last_move = last_move_;
  const int placing = Placings();
  // The own board first: the answer may arrive while the wait lets events through.
  ApplyResult(board_, CodeOf(selected.Piece), origin, target, result);
  ClearSelection();
  DrawCell(target);
  MarkLastMove(
      {{.From = origin, .To = target, .Fought = FightOf(OwnPlayer(), CodeOf(selected.Piece), before, result)}});
  const StrategyMove move{.From = origin, .To = target, .Result = result};
  const bool sent = SendAndWait(message::kMove.Token + ToQString(StrategyMoveText(move)));
  if (placing != Placings()) return Carried::OfAnOldGame;
  if (sent) return Carried::Out;
  board_.Set(origin, CodeOf(selected.Piece));
  board_.Set(target, before);
  selection_ = selected;
  DrawCell(origin);
  DrawCell(target);
  MarkLastMove(last_move);
  return Carried::NotOut;
}

void StrategyFlow::TakeFlag(Selection selected, Coordinate cell) {
  // Taken and counted before the box opens: the opponent may ask for another game while it is open. The grid goes on
  // showing the piece where it started from.
  const auto fought = FightOf(OwnPlayer(), CodeOf(selected.Piece), board_.At(cell), CombatResult::FlagTaken);
  ApplyResult(board_, CodeOf(selected.Piece), selected.Cell, cell, CombatResult::FlagTaken);
  MarkLastMove({{.From = selected.Cell, .To = cell, .Fought = fought}});
  SetGameOver(true);
  AddPoint(OwnPlayer());
  ShowBox(u"¡Enhorabuena, ha capturado la bandera enemiga!"_s, u"Ha ganado"_s);
  if (session_.GameOver) AddMessage(u"Haga click en el tablero para continuar"_s);
}

// ---- The opponent's move ----

void StrategyFlow::ApplyOpponentMove(const QString& payload) {
  if (session_.GameOver) return;
  const auto move = ReadStrategyMove(Characters(payload));
  if (!move) throw MalformedMessage("no result of a move");
  const Coordinate origin = game_.Variant.Mirrored(move->From);
  const Coordinate target = game_.Variant.Mirrored(move->To);
  const QString report = MoveReport(move->Result, board_.At(origin), board_.At(target), origin, target);
  const auto fought = FightOf(OtherPlayer(), board_.At(origin), board_.At(target), move->Result);
  // Applied before the box opens: the next move may arrive while it is open.
  ApplyResult(board_, board_.At(origin), origin, target, move->Result);
  PassTurnOn();
  DrawCell(origin);
  DrawCell(target);
  MarkLastMove({{.From = origin, .To = target, .Fought = fought}});
  ShowBox(PaddedName(OtherPlayer()) + report, {});
}

// ---- Passing ----

void StrategyFlow::Pass() {
  if (!OwnTurn()) {
    SetStatus(u"No es su turno de jugar."_s);
    return;
  }
  if (const auto cell = FindMovablePiece(board_, OwnPlayer())) {
    AddMessage(u"Puede mover el "_s + ToQString(CellContentName(board_.At(*cell))) + u" de " + CellName(*cell) + u'.');
    return;
  }
  if (!Send(message::kPassed.Token.toString())) return;
  AddMessage(u"Pasa el turno al otro jugador. Le toca mover a "_s + PaddedName(OpponentOf(session_.CurrentTurn)));
  PassTurnOn();
}

void StrategyFlow::OpponentPassed() {
  PassTurnOn();
  AddMessage(u"El otro jugador no puede mover y pasa el turno. "_s + PaddedName(session_.CurrentTurn) +
             u" es su turno.");
}

// ---- The end ----

void StrategyFlow::FlagLost() {
  EmptyTexts();
  // Counted before the box opens: the winner may ask for another game while it is open.
  AddPoint(OtherPlayer());
  SetGameOver(true);
  // From where the flag was taken, and by whom, is not told.
  if (const auto flag = FindFlag(board_, OwnPlayer())) {
    Fighters fought;
    fought[OwnPlayer()] = FoughtAs(board_.At(*flag), true);
    MarkLastMove({{.From = *flag, .To = *flag, .Fought = fought}});
  }
  ShowBox(PaddedName(OtherPlayer()) + u" ha conseguido capturar la bandera, ganando la partida." + kCrLf +
              u"Pulse sobre el tablero para continuar.",
          u"Ha perdido"_s);
}

}  // namespace brontavia
