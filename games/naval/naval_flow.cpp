#include "games/naval/naval_flow.h"

#include "games/cell_name.h"
#include "games/naval/sea_display.h"
#include "text/qt_text.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

// Header row and column with eleven equal cells: 5800 / 12 twips in the large grid, 2900 / 12 in the small one.
constexpr BoardShape GridShape(int cell) {
  return {.Rows = kSeaSide + 1,
          .Columns = kSeaSide + 1,
          .HeaderCells = 1,
          .CellWidth = cell,
          .CellHeight = cell,
          .HeaderSize = cell};
}
constexpr int kLargeCell = 5800 / 12;
constexpr int kSmallCell = 2900 / 12;

QString HeaderText(CellIndex cell) {
  if (cell.Row == 0 && cell.Column == 0) return {};
  return cell.Row == 0 ? QString(ColumnLetter(cell.Column)) : QString::number(cell.Row);
}

void ShowHeaders(BoardModel& grid) {
  for (int i = 1; i <= kSeaSide; ++i) {
    for (const CellIndex cell : {CellIndex{.Row = 0, .Column = i}, CellIndex{.Row = i, .Column = 0}}) {
      grid.SetCell(cell, {.Text = HeaderText(cell)});
    }
  }
}

void SetText(BoardModel& grid, Coordinate cell, const QString& text) {
  CellContent content = grid.Cell(IndexOf(cell));
  content.Text = text;
  grid.SetCell(IndexOf(cell), content);
}

}  // namespace

NavalFlow::NavalFlow(const Seams& seams, const RandomSeed& seed)
    : PlacingFlow(kFormBAR, seams, seed),
      fg1_(GridShape(kLargeCell), [this](CellIndex cell) { return DescribeCell(cell); }),
      fg2_(GridShape(kSmallCell), [this](CellIndex cell) { return DescribeOwnCell(cell); }) {
  On(message::kPlaced, [this](const QString& data) { ReceiveFleet(data); });
  On(message::kReady, [this](const QString&) { OpponentReady(); });
  On(message::kMove, [this](const QString& payload) { ReceiveShot(payload); });
  On(message::kWon, [this](const QString&) { Lost(); });
  connect(&fg1_, &BoardModel::CurrentCellChanged, this, [this](CellIndex /*previous*/, CellIndex current) {
    // A reset moves it too, and one under an open box tells the same as any other.
    RunHandler([this, current] { SetStatus(DescribeCell(current)); });
  });
}

void NavalFlow::LoadGame() {
  ShowHeaders(fg1_);
  ShowHeaders(fg2_);
  InitFleet();
}

void NavalFlow::InitFleet() {
  board_.InitFleet();
  BeginPlacing();
  ShowSea(u"Mar propio"_s, OwnPlayer());
  ListShipsToPlace();
  for (BoardModel* grid : {&fg1_, &fg2_}) {
    for (const Coordinate cell : CellsBetween({1, 1}, {kSeaSide, kSeaSide})) grid->SetCell(IndexOf(cell), {});
  }
  fg1_.SetCurrentCell({.Row = 1, .Column = 1});
  SetGameOver(false);
  ready_flags_ = {};
  opponent_placed_ = false;
  session_.RematchWanted = {};
}

void NavalFlow::FirstTurnSettled() { ShowBox(u"Coloque sus barcos"_s, {}); }

void NavalFlow::DescribeSide(Player player, ScoreboardSide& side) const {
  side.Sign = player == Player::Server ? PlayerSign::Pennant : PlayerSign::SwallowTail;
  DescribePlacing(player, u"Coloca sus barcos", side);
}

KeyHints NavalFlow::Keys() const {
  if (!placement_mode_)
    return {{.Key = u"Intro"_s, .Use = u"dispara"_s}, {.Key = u"Flechas"_s, .Use = u"elegir casilla"_s}};
  return {{.Key = u"Intro"_s, .Use = u"fija el inicio y el final de un barco"_s},
          {.Key = u"Esc"_s, .Use = u"borra el inicio"_s},
          {.Key = u"T"_s, .Use = u"termina"_s}};
}

// ---- What the user does ----

void NavalFlow::BoardClicked(CellIndex cell) {
  RunUserAction([this, cell] {
    if (placement_mode_) {
      ClickToPlace(CellOf(cell));
    } else if (session_.GameOver) {
      AskForRematch();
    } else if (!session_.TurnSettled || session_.CurrentTurn != OwnPlayer()) {
      SetStatus(u"No es su turno de jugar."_s);
    } else {
      FireShot(CellOf(cell));
    }
  });
}

void NavalFlow::BoardKeyPressed(int key) {
  RunUserAction([this, key] {
    if (!placement_mode_) return;
    if (key == Qt::Key_Escape) {
      SetStatus(u"Posición inicial borrada"_s);
      board_.ErasePendingStart();
      ShowFirstEnd();
    }
    if (key == Qt::Key_T) ConfirmWithKey();
  });
}

// ---- Placing ----

void NavalFlow::ClickToPlace(Coordinate cell) {
  const PlacementOutcome outcome = board_.ClickToPlace(cell);
  ShowFirstEnd();
  switch (outcome.Step) {
    case PlacementStep::OnShip:
      if (ShowBox(u"¿Desea quitar ese barco?"_s, u"Batalla naval"_s, Buttons::YesNo) == Button::Yes) {
        RemoveShip(outcome.Ship);
      }
      return;
    case PlacementStep::OnMargin:
      SetStatus(u"Esa posición no está libre"_s);
      return;
    case PlacementStep::StartFixed:
      SetStatus(u"posición inicial fijada"_s);
      return;
    case PlacementStep::StartErased:
      SetStatus(u"Posición inicial eliminada."_s);
      return;
    case PlacementStep::Diagonal: {
      const Coordinate start = board_.PendingStart().value();
      ShowBox(u"No se pueden colocar los barcos en diagonal. La posición de inicio del barco es "_s +
                  ColumnLetter(start.Column) + u", " + QString::number(start.Row),
              {});
      return;
    }
    case PlacementStep::TooLong:
      ShowBox(u"No existen barcos de más de 5 casillas de largo"_s, {});
      return;
    case PlacementStep::Blocked:
      ShowBox(u"Alguna de las casillas necesarias para colocar el barco no está libre."_s, {});
      return;
    case PlacementStep::NoSuchShip:
      AddMessage(u"No quedan barcos de ese tamaño por colocar"_s);
      return;
    case PlacementStep::Placed:
      ShipPlaced(outcome);
      return;
  }
}

void NavalFlow::ShipPlaced(const PlacementOutcome& outcome) {
  for (const Coordinate cell : outcome.ShipCells) SetText(fg1_, cell, Name(outcome.Ship));
  DrawShip(fg1_, outcome.Ship);
  for (const Coordinate cell : outcome.MarginCells) {
    SetText(fg1_, cell, u"Agua"_s);
    SetDrawing(fg1_, cell, {.Margin = true});
  }
  ListShipsToPlace();
  SetStatus(u"Colocado "_s + Name(outcome.Ship) + u", quedan " + QString::number(board_.ShipsToPlace()) +
            u" barcos por colocar.");
  if (board_.ShipsToPlace() >= 1) return;
  const Button done = ShowBox(u"¿Ha terminado de colocar los barcos?"_s, u"Batalla naval"_s, Buttons::YesNo);
  if (done == Button::No) {
    AddMessage(u"Haga  modificaciones en las posiciones de sus barcos o pulse t cuando haya terminado"_s);
  } else if (receiving_fleet_) {
    ShowBox(
        u"Espere un momento, está recibiendo la posición de los barcos enemigos, pulse t cuando desee volver a "
        u"intentar enviar los barcos"_s,
        {});
  } else {
    SendFleet();
  }
}

void NavalFlow::RemoveShip(int number) {
  for (const Coordinate cell : board_.RemoveShip(number)) {
    SetText(fg1_, cell, {});
    SetDrawing(fg1_, cell, {});
  }
  ShowFirstEnd();
  SetStatus(u"Eliminado "_s + Name(number) + u", quedan " + QString::number(board_.ShipsToPlace()) +
            u" barcos por colocar.");
}

void NavalFlow::ConfirmWithKey() {
  if (board_.ShipsToPlace() > 0) {
    AddMessage(u"Aún faltan barcos por colocar "_s);
  } else if (receiving_fleet_) {
    ShowBox(
        u"Espere un momento, está recibiendo la posición de los barcos enemigos, pulse t cuando desee volver a "
        u"intentar enviar los barcos."_s,
        {});
  } else {
    SendFleet();
  }
}

void NavalFlow::ListShipsToPlace() {
  QString list = u"Faltan por colocar:"_s + kCrLf;
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    if (board_.Taken(number)) continue;
    const ShipRecord& ship = board_.Ship(number);
    list += ToQString(ship.Name) + u" (" + QString::number(ship.Length) + u" Casillas)" + kCrLf;
  }
  Screen().SetText(Box::TBBarcos, list);
}

// ---- Exchange of the fleets ----

void NavalFlow::SendFleet() {
  Screen().SetText(Box::TBMensajes, u"Enviando barcos: "_s);
  if (!SendPlaced(FleetText(board_.Fleet()))) {
    Screen().SetText(Box::TBMensajes, {});  // nothing is on its way any more
    return;
  }
  Screen().SetText(Box::TBMensajes, u"barcos enviados "_s);
  EmptyGrid(fg1_);
  MoveMark(fg1_, Mark::FirstEnd, std::nullopt);
  ShowSea(u"Mar enemigo"_s, OtherPlayer());
  ShowOwnFleet();
  if (BothReady()) {
    BeginFiring();
  } else {
    ShowWaitingBox(u"Espere a que el otro jugador termine de colocar sus barcos "_s);
    waiting_for_opponent_ = true;
  }
  placement_mode_ = false;
}

void NavalFlow::BeginFiring() {
  CloseWaitingBox();
  EmptyTexts();
  ShowBox(u"Ambos jugadores están listos para empezar a disparar, "_s +
              (session_.CurrentTurn == OwnPlayer() ? u" es su turno."_s : u" le toca al otro jugador."_s),
          {});
  waiting_for_opponent_ = false;
  ShowFleetStatus();
}

void NavalFlow::OpponentReady() {
  opponent_placed_ = true;
  ready_flags_[OtherPlayer()] = true;
  if (BothReady()) {
    BeginFiring();
  } else {
    AddMessage(u"El otro jugador ha terminado de colocar sus barcos y está esperando."_s);
  }
}

void NavalFlow::ReceiveFleet(const QString& data) {
  receiving_fleet_ = true;
  const FleetReading reading = ReadFleet(Characters(data));
  if (reading.BadBlock) {
    ShowBox(u"Error. Datos actuales: "_s + data + u" numbarco = " + QString::number(*reading.BadBlock) +
                u" recibidos: False, colocando = False, Limpiando = False Contadores: " +
                QString::number(*reading.BadBlock) + u"; 0; 0; 0. Coor: " + QString::number(reading.BadCell.Column) +
                u", " + QString::number(reading.BadCell.Row),
            {});
    return;
  }
  board_.TakeEnemyFleet(reading.Ships);
  EmptyGrid(fg1_);
  EmptyGrid(fg2_);
  ShowOwnFleet();
  receiving_fleet_ = false;
}

// ---- What the grids show ----

void NavalFlow::SetGameOver(bool over) {
  session_.GameOver = over;
  fg1_.SetWaitsForClick(over);
}

void NavalFlow::ShowSea(const QString& caption, Player owner) {
  Screen().ShowBoardCaption(caption, owner == Player::Server ? PlayerSign::Pennant : PlayerSign::SwallowTail);
}

void NavalFlow::ShowFirstEnd() { MoveMark(fg1_, Mark::FirstEnd, board_.PendingStart()); }

void NavalFlow::DrawShip(BoardModel& grid, int number) {
  const ShipRecord& ship = board_.Ship(number);
  for (const Coordinate cell : CellsBetween(ship.Start, ship.End)) {
    const SeaDrawing drawing{.ShipLength = ship.Length,
                             .Segment = ship.SegmentOn(cell),
                             .Upright = ship.Start.Column == ship.End.Column,
                             .Sunk = ship.State == ShipState::Hundido};
    SetDrawing(grid, cell, drawing);
  }
}

void NavalFlow::ShowOwnFleet() {
  // Where a ship lay that was taken off since its letters were written, they stay; the hull is drawn where it lies now.
  for (const Coordinate cell : CellsBetween({1, 1}, {kSeaSide, kSeaSide})) SetDrawing(fg2_, cell, {});
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    const ShipRecord& ship = board_.Ship(number);
    // A ship that has not been placed lies on (0, 0), the corner of the headers.
    for (const Coordinate cell : CellsBetween(ship.Start, ship.End)) SetText(fg2_, cell, Name(number).first(1));
    if (ship.Placed) DrawShip(fg2_, number);
  }
}

void NavalFlow::EmptyGrid(BoardModel& grid) {
  for (const Coordinate cell : CellsBetween({1, 1}, {kSeaSide, kSeaSide})) {
    SetText(grid, cell, {});
    SetDrawing(grid, cell, {});
  }
}

QString NavalFlow::DescribeCell(CellIndex cell) const {
  if (fg1_.IsHeader(cell)) return HeaderText(cell);
  const Coordinate place = CellOf(cell);
  const int code = placement_mode_ ? board_.OwnBoard(place) : board_.ShotBoard(place);
  QString description = CellName(place) + u' ';
  if (code == kWaterMargin) return description + u"Agua";
  if (code == kShotHit) return description + u"Impacto";
  return code == 0 ? description : description + Name(code);
}

QString NavalFlow::DescribeOwnCell(CellIndex cell) const {
  if (fg2_.IsHeader(cell)) return fg2_.Cell(cell).Text;
  const Coordinate place = CellOf(cell);
  const int code = board_.OwnBoard(place);
  QString description = CellName(place) + u' ';
  const bool shown = !fg2_.Cell(cell).Text.isEmpty();
  if (shown && code >= 1 && code <= kShipsPerFleet) description += Name(code);
  if (fg2_.Cell(cell).BackColour == kHitColour) description += u" Impacto";
  return description;
}

void NavalFlow::PlaySound(Sound sound) {
  switch (sound) {
    case Sound::Water:
      Screen().PlaySound(MediaPlayer::Mp1, u"Agua.wav"_s);
      return;
    case Sound::Hit:
      Screen().PlaySound(MediaPlayer::Mp1, u"Impacto.wav"_s);
      return;
    case Sound::Sunk:
      // The other player, so that the hit of the same shot is not cut off.
      Screen().PlaySound(MediaPlayer::MP2, u"Hundido.wav"_s);
      return;
  }
}

QString NavalFlow::Name(int ship) const { return ToQString(TrimmedName(board_.Ship(ship))); }

}  // namespace brontavia
