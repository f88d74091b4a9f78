// NavalFlow from the first shot to the end of a battle.
#include "games/cell_name.h"
#include "games/naval/naval_flow.h"
#include "games/naval/sea_display.h"
#include "text/qt_text.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

QChar StateLetter(ShipState state) {
  switch (state) {
    case ShipState::Intacto:
      return u'I';
    case ShipState::Tocado:
      return u'T';
    case ShipState::Hundido:
      return u'H';
  }
  return u'I';
}

}  // namespace

void NavalFlow::FireShot(Coordinate cell) {
  if (!BothReady() && waiting_for_opponent_) {
    ShowWaitingBox(u"Por favor, Espere a que el otro jugador coloque sus barcos"_s);
    return;
  }
  const NavalBoard before = board_;
  const ShotOutcome outcome = board_.Fire(cell);
  const bool water = outcome.Step == ShotStep::Water;
  if (!Send(message::kMove.Token + ToQString(ShotText({.Cell = cell, .Water = water})))) {
    board_ = before;
    return;
  }
  fg1_.SetCell(IndexOf(cell),
               {.Text = water ? u"Agua"_s : u"impacto"_s, .BackColour = water ? kWaterColour : kHitColour});
  for (const Coordinate revealed : outcome.Revealed) {
    fg1_.SetCell(IndexOf(revealed), {.Text = u"Agua"_s, .BackColour = kWaterColour});
  }
  if (!water && board_.Ship(outcome.Ship).State == ShipState::Hundido) DrawShip(fg1_, outcome.Ship);
  MoveMark(fg1_, Mark::LastMove, cell);
  if (water) {
    SetStatus(u"¡Agua!"_s);
    PlaySound(Sound::Water);
    session_.CurrentTurn = OpponentOf(session_.CurrentTurn);
    AddToStatus(session_.CurrentTurn == OwnPlayer() ? u" es su turno."_s : u" le toca disparar al otro jugador."_s);
  }
  if (!water && outcome.Step != ShotStep::HitBefore) ShipHit(outcome);
}

void NavalFlow::ShipHit(const ShotOutcome& outcome) {
  if (outcome.Step == ShotStep::Hit) {
    SetStatus(u"¡Impacto!, Barco tocado. Siga disparando."_s);
    return;
  }
  SetStatus(u"¡Impacto!, Barco hundido."_s);
  ShowFleetStatus();
  if (board_.EnemyShipsAfloat() > 0) {
    AddToStatus(u" Siga disparando."_s);
  } else {
    Win();
  }
}

void NavalFlow::Win() {
  if (!Send(message::kWon.Token.toString())) return;
  ShowBox(u"¡Enhorabuena, ha conseguido destruir todos los barcos enemigos!"_s, u"Ha ganado"_s);
  AddMessage(u"Haga click en el tablero para continuar"_s);
  SetGameOver(true);
  AddPoint(OwnPlayer());
}

void NavalFlow::ReceiveShot(const QString& payload) {
  if (session_.GameOver) return;
  const auto shot = ReadShot(Characters(payload));
  if (!shot) throw MalformedMessage("no shot at this sea");
  QString line = u"Disparo enemigo  en "_s + CellName(shot->Cell);
  if (shot->Water) {
    line += u": Agua.";
    // The text of the cell tells of hits alone, so whoever sees it is shown where water has been fired at.
    SeaDrawing drawing = Unpacked(fg2_.Cell(IndexOf(shot->Cell)).Drawing);
    drawing.Ring = true;
    SetDrawing(fg2_, shot->Cell, drawing);
    PlaySound(Sound::Water);
    session_.CurrentTurn = OpponentOf(session_.CurrentTurn);
    if (session_.CurrentTurn == OwnPlayer()) line += u" Le toca disparar.";
  } else {
    line += HitReport(board_.TakeHit(shot->Cell));
    fg2_.SetCell(IndexOf(shot->Cell), {.Text = u"*"_s, .BackColour = kHitColour});
    DrawShip(fg2_, board_.OwnBoard(shot->Cell));
    ShowFleetStatus();
  }
  MoveMark(fg2_, Mark::LastMove, shot->Cell);
  SetStatus({});
  AddMessage(line);
}

QString NavalFlow::HitReport(const ShotOutcome& outcome) {
  QString report = u": Impacto en un "_s + Name(outcome.Ship);
  PlaySound(Sound::Hit);
  if (outcome.Step == ShotStep::Sunk) {
    report += u", barco hundido.";
    PlaySound(Sound::Sunk);
  }
  if (outcome.Step == ShotStep::Hit) report += u", barco tocado.";
  return report;
}

void NavalFlow::Lost() {
  EmptyTexts();
  ShowBox(session_.PlayerNames.Trimmed(session_.CurrentTurn) + u" ha destruído todos sus barcos." + kCrLf +
              u"Pulse sobre el tablero para continuar.",
          u"Ha perdido"_s);
  AddPoint(OtherPlayer());
  SetGameOver(true);
  Screen().SetText(Box::TBMensajes, {});
}

void NavalFlow::ShowFleetStatus() {
  QString table = u"Estado de los barcos"_s + kCrLf + u"Barcos propios | Barcos enemigos " + kCrLf;
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    const ShipRecord& own = board_.Ship(number);
    const ShipRecord& enemy = board_.Ship(number + kEnemyOffset);
    table += ToQString(own.Name) + StateLetter(own.State) + u" |" + ToQString(enemy.Name) +
             (enemy.State == ShipState::Hundido ? u'H' : u'?') + kCrLf;
  }
  Screen().SetText(Box::TBBarcos, table);
}

}  // namespace brontavia
