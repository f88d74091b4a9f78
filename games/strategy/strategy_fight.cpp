// StrategyFlow from the first move to the taken flag.
#include "games/cell_name.h"
#include "games/strategy/movement.h"
#include "games/strategy/strategy_flow.h"
#include "text/qt_text.h"
#include "text/rounding.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMoveFieldLength = 3;

QString NameOf(int rank) { return ToQString(RankName(rank)); }

// How an attack of `attacker` on `defender` (ranks) went, for the attacker's player.
QString CombatReport(Combat combat, int attacker, int defender) {
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
  const QString piece = u" con un "_s + NameOf(RankOf(attacker)) + u" de " + CellName(from);
  const QString target = NameOf(RankOf(defender)) + u" de " + CellName(to);
  if (result == CombatResult::BothDestroyed) {
    return u" ataca"_s + piece + u" contra otro  " + target + u" y ambos son destruídos. Es su turno.";
  }
  if (result == CombatResult::AttackerDestroyed && RankOf(defender) == rank::kBomb) {
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

// ---- On the wire: five fields of two digits and "," each ----

QString MoveField(int value) { return u"%1,"_s.arg(value, 2, 10, QChar(u'0')); }

int ReadMoveField(const QString& payload, int field) {
  return RoundHalfEven<std::int16_t>(Val(QStringView(payload).mid(field * kMoveFieldLength, kMoveFieldLength)));
}

}  // namespace

// ---- The own move ----

void StrategyFlow::ClickToFight(Coordinate cell) {
  if (!OwnTurn()) {
    SetStatus(u"No es su turno de jugar."_s);
  } else if (selected_cell_ == Coordinate{}) {
    Select(cell);
  } else {
    ClickTarget(cell);
  }
}

void StrategyFlow::Select(Coordinate cell) {
  const CellCode code = board_.At(cell);
  if (!IsPiece(code)) {
    SetStatus(u"Casilla vacía"_s);
  } else if (!IsOwnPiece(code)) {
    SetStatus(u"No puede mover fichas del otro jugador"_s);
  } else if (RankOf(code) == rank::kFlag) {
    SetStatus(u"La bandera no se puede mover"_s);
  } else if (!IsMovable(code)) {
    SetStatus(u"Las bombas no se pueden mover"_s);
  } else {
    selected_cell_ = cell;
    selected_code_ = code;
    DrawCell(cell);
    SetStatus(NameOf(RankOf(code)) + u" seleccionado.");
  }
}

void StrategyFlow::ClearSelection() {
  const Coordinate cell = std::exchange(selected_cell_, {});
  DrawCell(cell);
}

void StrategyFlow::ClickTarget(Coordinate cell) {
  const CellCode code = board_.At(cell);
  if (cell == selected_cell_) {
    SetStatus(u"Selección cancelada"_s);
    ClearSelection();
  } else if (code == kWaterCell) {
    SetStatus(u"No se pueden mover fichas al agua. selección cancelada."_s);
    ClearSelection();
  } else if (!InRange(cell)) {
    return;
  } else if (code == kEmptyLand) {
    MoveTo(cell);
  } else if (IsOwnPiece(code)) {
    SetStatus(u"No puede atacar a miembros de su propio ejército. Selección cancelada."_s);
    ClearSelection();
  } else {
    Attack(cell);
  }
}

bool StrategyFlow::InRange(Coordinate cell) {
  const int rank = RankOf(selected_code_);
  switch (CheckMoveRange(board_, rank, selected_cell_, cell)) {
    case MoveRange::Valid:
      return true;
    case MoveRange::Diagonal:
      SetStatus(u"No se puede mover en diagonal."_s);
      return false;
    case MoveRange::Blocked:
      SetStatus(u"Hay algún obstáculo en el camino a recorrer que impide llegar hasta ahí"_s);
      return false;
    case MoveRange::TooFar:
      SetStatus(u"Un "_s + NameOf(rank) + u" no puede moverse más de una casilla en un turno ni mover en diagonal.");
      return false;
  }
  return false;
}

void StrategyFlow::MoveTo(Coordinate cell) {
  const QString moved = NameOf(RankOf(selected_code_)) + u" movido";
  if (!CarryOut(cell, CombatResult::AttackerWins)) return;
  SetStatus(moved);
  AddMessage(moved + u". Le toca jugar a" + PaddedName(OpponentOf(session_.CurrentTurn)));
  PassTurnOn();
}

void StrategyFlow::Attack(Coordinate cell) {
  const int attacker = RankOf(selected_code_);
  const int defender = RankOf(board_.At(cell));
  const Combat combat = ResolveCombat(attacker, defender);
  SetStatus(CombatReport(combat, attacker, defender));
  if (combat == Combat::FlagTaken) {
    TakeFlag(cell);
    return;
  }
  if (!CarryOut(cell, ResultOf(combat))) {
    SetStatus({});  // no such thing has come about
    return;
  }
  AddMessage(u"Le toca jugar a"_s + PaddedName(OpponentOf(session_.CurrentTurn)));
  PassTurnOn();
}

bool StrategyFlow::CarryOut(Coordinate target, CombatResult result) {
  const Coordinate origin = selected_cell_;
  const CellCode before = board_.At(target);
  // The own board first: the answer may arrive while the wait lets events through.
  ApplyResult(board_, selected_code_, origin, target, result);
  ClearSelection();
  DrawCell(target);
  QString move = message::kMove.Token.toString();
  for (const int field : {origin.Column, origin.Row, target.Column, target.Row, static_cast<int>(result)}) {
    move += MoveField(field);
  }
  if (SendAndWait(move)) return true;
  board_.Set(origin, selected_code_);
  board_.Set(target, before);
  DrawCell(origin);
  DrawCell(target);
  return false;
}

void StrategyFlow::TakeFlag(Coordinate cell) {
  if (!Send(message::kWon.Token.toString())) {
    SetStatus({});
    return;
  }
  // Taken and counted before the box opens: the opponent may ask for another game while it is open. The grid goes on
  // showing the piece where it started from.
  ApplyResult(board_, selected_code_, selected_cell_, cell, CombatResult::FlagTaken);
  session_.GameOver = true;
  AddPoint(OwnPlayer());
  ShowBox(u"¡Enhorabuena, ha capturado la bandera enemiga!"_s, u"Ha ganado"_s);
  if (session_.GameOver) AddMessage(u"Haga click en el tablero para continuar"_s);
}

// ---- The opponent's move ----

void StrategyFlow::ApplyOpponentMove(const QString& payload) {
  if (session_.GameOver) return;
  const Coordinate origin =
      game_.Variant.Mirrored({.Column = ReadMoveField(payload, 0), .Row = ReadMoveField(payload, 1)});
  const Coordinate target =
      game_.Variant.Mirrored({.Column = ReadMoveField(payload, 2), .Row = ReadMoveField(payload, 3)});
  const int code = ReadMoveField(payload, 4);
  if (code < static_cast<int>(CombatResult::AttackerDestroyed) ||
      code > static_cast<int>(CombatResult::BothDestroyed)) {
    throw MalformedMessage("no result of a move");
  }
  const auto result = static_cast<CombatResult>(code);
  const QString report = MoveReport(result, board_.At(origin), board_.At(target), origin, target);
  // Applied before the box opens: the next move may arrive while it is open.
  ApplyResult(board_, board_.At(origin), origin, target, result);
  PassTurnOn();
  DrawCell(origin);
  DrawCell(target);
  ShowBox(PaddedName(OtherPlayer()) + report, {});
}

// ---- Passing ----

void StrategyFlow::Pass() {
  if (!OwnTurn()) {
    SetStatus(u"No es su turno de jugar."_s);
    return;
  }
  if (const auto cell = FindMovablePiece(board_, OwnPlayer())) {
    AddMessage(u"Puede mover el "_s + NameOf(RankOf(board_.At(*cell))) + u" de " + CellName(*cell) + u'.');
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
  session_.GameOver = true;
  ShowBox(PaddedName(OtherPlayer()) + u" ha conseguido capturar la bandera, ganando la partida." + kCrLf +
              u"Pulse sobre el tablero para continuar.",
          u"Ha perdido"_s);
}

}  // namespace brontavia
