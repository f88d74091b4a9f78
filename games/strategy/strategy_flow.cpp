#include "games/strategy/strategy_flow.h"

#include "games/cell_name.h"
#include "games/strategy/strategy_drawing.h"
#include "text/qt_text.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeaderSize = 500;                                    // twips
constexpr ColourValue kWaterBackground = 0x8B8B00;                  // RGB(0, 139, 139)
constexpr PerPlayer<ColourValue> kArmyColours{.Server = 0x000070,   // RGB(112, 0, 0)
                                              .Client = 0x700000};  // RGB(0, 0, 112)

}  // namespace

StrategyFlow::StrategyFlow(const StrategyGame& game, const Seams& seams, const RandomSeed& seed)
    : PlacingFlow(game.Window, seams, seed),
      game_(game),
      board_(game.Variant),
      army_(board_),
      fg1_({.Rows = game.Variant.Rows + 1,
            .Columns = game.Variant.Columns + 1,
            .HeaderCells = 1,
            .CellWidth = game.CellWidth,
            .CellHeight = game.CellHeight,
            .HeaderSize = kHeaderSize},
           [this](CellIndex cell) { return fg1_.IsHeader(cell) ? fg1_.Cell(cell).Text : DescribeCell(CellOf(cell)); }) {
  On(message::kReady, [this](const QString&) { OpponentReady(); });
  On(message::kWon, [this](const QString&) { FlagLost(); });
  On(message::kMove, [this](const QString& payload) { ApplyOpponentMove(payload); });
  On(message::kPlaced, [this](const QString& data) { ReceiveArmy(data); });
  On(message::kPassed, [this](const QString&) { OpponentPassed(); });
  // Where the own army begins. Before anybody listens, so that it is not described.
  fg1_.SetCurrentCell(IndexOf({.Column = 1, .Row = 1}));
  connect(&fg1_, &BoardModel::CurrentCellChanged, this,
          [this](CellIndex /*previous*/, CellIndex current) { PointerMoved(current); });
}

void StrategyFlow::LoadGame() {
  ShowHeaders();
  ResetArmy();
}

void StrategyFlow::ResetForNewGame() {
  ResetArmy();  // the ready flags stay, so that later games begin sooner
  opponent_placed_ = false;
  SetGameOver(false);
}

void StrategyFlow::ResetArmy() {
  army_.Reset(OwnPlayer());
  BeginPlacing();
  selection_.reset();
  last_move_.reset();
  DrawBoard();
}

void StrategyFlow::SetGameOver(bool over) {
  session_.GameOver = over;
  fg1_.SetWaitsForClick(over);
}

void StrategyFlow::FirstTurnSettled() { AddMessage(u"Coloque su ejército"_s); }

void StrategyFlow::BeginPlacement() {
  AddMessage(u"Coloque su ejército"_s);
  ResetArmy();
  session_.NameKnown = {.Server = true, .Client = true};
  SetStatus(u"Coloque su ejército "_s);
}

void StrategyFlow::DescribeSide(Player player, ScoreboardSide& side) const {
  side.Sign = player == Player::Server ? PlayerSign::Sun : PlayerSign::Moon;
  side.Fought = Fought()[player];
  DescribePlacing(player, u"Coloca su ejército", side);
}

KeyHints StrategyFlow::Keys() const {
  const KeyHint ranks{.Key = u"F2"_s, .Use = u"rangos"_s};
  if (!placement_mode_) {
    return {{.Key = u"Intro"_s, .Use = u"elige y mueve"_s},
            ranks,
            {.Key = u"Esc"_s, .Use = u"pasa si nada puede moverse"_s}};
  }
  KeyHints keys{{.Key = u"Intro"_s, .Use = u"elige la ficha"_s}, {.Key = u"F3"_s, .Use = u"coloca al azar"_s}, ranks};
  if (army_.PiecesToPlace() < 1) keys << KeyHint{.Key = u"Esc"_s, .Use = u"termina"_s};
  return keys;
}

// ---- What the user does ----

void StrategyFlow::BoardClicked(CellIndex cell) {
  RunUserAction([this, cell] {
    if (session_.GameOver) {
      AskForRematch();
    } else if (placement_mode_) {
      ClickToPlace(CellOf(cell));
    } else {
      ClickToFight(CellOf(cell));
    }
  });
}

void StrategyFlow::PointerMoved(CellIndex cell) {
  RunUserAction([this, cell] {
    if (!fg1_.IsHeader(cell)) ShowDescription(CellOf(cell));
  });
}

void StrategyFlow::KeyPressed(int key) {
  RunUserAction([this, key] {
    if (key == Qt::Key_F2) ListRanks();
    if (key == Qt::Key_F3 && placement_mode_) DeployAtRandom();
    if (key != Qt::Key_Escape || session_.GameOver) return;
    if (!placement_mode_) {
      Pass();
    } else if (army_.PiecesToPlace() < 1) {
      FinishPlacing();
    }
  });
}

// ---- Placing ----

void StrategyFlow::ClickToPlace(Coordinate cell) {
  if (!army_.MayStandOn(cell)) {
    SetStatus(u"No puede colocar fichas fuera de su zona"_s);
  } else if (!board_.PieceAt(cell)) {
    ChooseRankFor(cell);
  } else if (IsPieceOf(OwnPlayer(), board_.At(cell))) {
    TakeBack(cell);
  }
}

void StrategyFlow::ChooseRankFor(Coordinate cell) {
  QList<MenuItem> ranks;
  for (const Rank rank : kArmyRanks) {
    const int left = army_.RanksToPlace(rank);
    ranks << MenuItem{.Caption = ToQString(RankName(rank)) + u" (" + QString::number(left) + u')',
                      .Name = u"MnuTropaLis(%1)"_s.arg(ranks.size()),
                      .Visible = left > 0};
  }
  const auto chosen = PopUp(u"MnuTropa"_s, u"Tropa"_s, ranks);
  // What arrives while the menu is open may end the placing or take the cell.
  if (!chosen || !placement_mode_ || !army_.Place(cell, kArmyRanks.at(static_cast<std::size_t>(*chosen)))) return;
  DrawCell(cell);
  ShowDescription(cell);
  if (army_.PiecesToPlace() < 1 && AskWhetherPlaced() == Button::Yes) FinishPlacing();
}

void StrategyFlow::TakeBack(Coordinate cell) {
  AddMessage(u"Ficha retirada"_s);
  army_.TakeBack(cell);
  // The cell's text is not written again: the name stays to be read until something else is placed.
  CellContent lingering = fg1_.Cell(IndexOf(cell));
  lingering.Drawing = drawing::PlaceOf(OwnPlayer());
  lingering.Marks = MarksOf(cell);
  fg1_.SetCell(IndexOf(cell), lingering);
  ShowDescription(cell);
}

void StrategyFlow::DeployAtRandom() {
  army_.DeployAtRandom([this](int count) { return Random().Below(count); });
  DrawBoard();
  const Button placed = AskWhetherPlaced();
  if (placed == Button::No) {
    SetStatus(u"Realice algún cambio en la posición actual."_s);
    return;
  }
  Screen().SetText(Box::TBMensajes, {});
  FinishPlacing();
}

Button StrategyFlow::AskWhetherPlaced() {
  return ShowBox(u"¿Ha terminado de colocar sus fichas?"_s, game_.PlacedTitle.toString(), Buttons::YesNo);
}

// ---- Exchange of the armies ----

void StrategyFlow::FinishPlacing() {
  // A new game may have begun while the question was open.
  if (army_.PiecesToPlace() > 0) return;
  placement_mode_ = false;
  SendArmy();
  DrawBoard();
}

void StrategyFlow::SendArmy() {
  if (!SendPlaced(board_.ArmyText())) {
    placement_mode_ = true;
    return;
  }
  if (BothReady()) {
    BeginFight();
    return;
  }
  // Before the box: the opponent's army may arrive while it is open.
  waiting_for_opponent_ = true;
  ShowWaitingBox(u"Espere a que el otro jugador termine de colocar su ejército"_s);
}

void StrategyFlow::BeginFight() {
  CloseWaitingBox();
  waiting_for_opponent_ = false;
  EmptyTexts();
  ShowBox(u"Ambos jugadores están listos para empezar el combate, "_s +
              (session_.CurrentTurn == OwnPlayer() ? u" es su turno."_s : u" le toca mover al otro jugador."_s),
          {});
}

void StrategyFlow::ReceiveArmy(const QString& data) {
  opponent_placed_ = true;
  ready_flags_[OtherPlayer()] = true;
  board_.TakeArmy(Characters(data), OtherPlayer());
  DrawBoard();
  if (BothReady()) {
    BeginFight();
    return;
  }
  AddMessage(u"El otro jugador ya ha colocado su ejército y está esperando"_s);
  waiting_for_opponent_ = true;
}

void StrategyFlow::OpponentReady() {
  opponent_placed_ = true;
  ready_flags_[OtherPlayer()] = true;
  if (!BothReady()) {
    AddMessage(u"El otro jugador ha terminado de colocar su ejército y está esperando."_s);
    return;
  }
  CloseWaitingBox();
  EmptyTexts();
  waiting_for_opponent_ = false;
  DrawBoard();
  if (!game_.TellsReadyOpponent) return;
  ShowBox(u"Ambos jugadores están listos para empezar a jugar, "_s +
              (session_.CurrentTurn == OwnPlayer() ? u" es su turno."_s : u" le toca al otro jugador."_s),
          {});
}

// ---- What the window shows ----

CellIndex StrategyFlow::IndexOf(Coordinate cell) const {
  return {.Row = game_.Variant.Rows + 1 - cell.Row, .Column = cell.Column};
}

Coordinate StrategyFlow::CellOf(CellIndex index) const {
  return {.Column = index.Column, .Row = game_.Variant.Rows + 1 - index.Row};
}

void StrategyFlow::ShowHeaders() {
  for (int column = 1; column <= game_.Variant.Columns; ++column) {
    fg1_.SetCell({.Row = 0, .Column = column}, {.Text = ColumnLetter(column)});
  }
  for (int row = 1; row <= game_.Variant.Rows; ++row) {
    fg1_.SetCell({.Row = IndexOf({.Column = 0, .Row = row}).Row, .Column = 0}, {.Text = QString::number(row)});
  }
}

void StrategyFlow::DrawBoard() {
  for (int column = 1; column <= game_.Variant.Columns; ++column) {
    for (int row = 1; row <= game_.Variant.Rows; ++row) DrawCell({.Column = column, .Row = row});
  }
}

void StrategyFlow::DrawCell(Coordinate cell) {
  const CellCode code = board_.At(cell);
  CellContent content{.Marks = MarksOf(cell)};
  if (code == kWaterCell) {
    content.BackColour = kWaterBackground;
    content.Drawing = drawing::kLake;
  }
  if (content.Marks.testFlag(Mark::ToFill)) content.Drawing = drawing::PlaceOf(OwnPlayer());
  if (const auto piece = PieceOf(code)) {
    // A revealed bomb shows in the viewer's colour, whoever laid it.
    const bool shown = piece->Side == OwnPlayer() || piece->Rank == Rank::RevealedBomb;
    content.Text = shown ? ToQString(RankName(piece->Rank)) : u"*"_s;
    content.ForeColour = kArmyColours[shown ? OwnPlayer() : OtherPlayer()];
    content.Drawing = shown ? drawing::FaceOf(OwnPlayer(), piece->Rank) : drawing::BackOf(OtherPlayer());
  }
  fg1_.SetCell(IndexOf(cell), content);
}

void StrategyFlow::DrawMarks(Coordinate cell) {
  CellContent content = fg1_.Cell(IndexOf(cell));
  content.Marks = MarksOf(cell);
  fg1_.SetCell(IndexOf(cell), content);
}

Marks StrategyFlow::MarksOf(Coordinate cell) const {
  brontavia::Marks marks;
  const bool occupied = board_.PieceAt(cell).has_value();
  marks.setFlag(Mark::Selected, occupied && cell == SelectedCell());
  marks.setFlag(Mark::ToFill, placement_mode_ && !occupied && army_.MayStandOn(cell));
  if (!last_move_) return marks;
  marks.setFlag(Mark::LastMove, cell == last_move_->From || cell == last_move_->To);
  const auto& fought = last_move_->Fought;
  marks.setFlag(Mark::Fight, cell == last_move_->To && (fought.Server || fought.Client));
  return marks;
}

QString StrategyFlow::DescribeCell(Coordinate cell) const {
  const auto piece = board_.PieceAt(cell);
  if (!piece) return ToQString(CellContentName(board_.At(cell))) + CellName(cell);
  const bool known = piece->Side == OwnPlayer() || piece->Rank == Rank::RevealedBomb || !HideEnemyRanks;
  const QString name = known ? ToQString(RankName(piece->Rank)) : QString();
  QString colour = piece->Side == Player::Server ? u" rojo"_s : u" azul"_s;
  // Flag and bomb are feminine; the spy keeps the masculine form.
  if (name.startsWith(u'B') && name.endsWith(u'a') && colour.endsWith(u'o')) colour = u" roja"_s;
  return name + colour + u" . " + CellName(cell);
}

void StrategyFlow::ListRanks() {
  QString ranks;  // the highest first
  for (const Rank rank : kArmyRanks) {
    ranks.prepend(QString::number(NumberOf(rank)) + u' ' + ToQString(RankName(rank)) + u". " + kCrLf);
  }
  ShowBox(u"Lista de rangos"_s + kCrLf + ranks + u"Aunque el espía y las bombas funcionan de manera especial.", {});
}

}  // namespace brontavia
