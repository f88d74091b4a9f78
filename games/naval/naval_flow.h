// A session of naval battle: turns the outcomes of NavalBoard into texts, messages, sounds and what FG1 and FG2 show.
// FG1 is the own sea while placing and the opponent's from then on; FG2 is the own fleet under fire. What is drawn on
// them (games/naval/sea_drawing.h) tells no more than their texts and boxes: a ship of the opponent's once it is sunk.
#pragma once

#include <optional>

#include "games/naval/naval_board.h"
#include "games/naval/sea_drawing.h"
#include "games/placing_flow.h"
#include "seams/board_model.h"

namespace brontavia {

class NavalFlow : public PlacingFlow {
  Q_OBJECT

 public:
  NavalFlow(const Seams& seams, const RandomSeed& seed);

  // ---- Entries ----

  // The user clicked `cell` of FG1, or pressed Enter or the space bar on it.
  void BoardClicked(CellIndex cell);
  // The user pressed another key (Qt::Key) on FG1: Esc and T mean something while placing.
  void BoardKeyPressed(int key);

  [[nodiscard]] BoardModel& FG1() { return fg1_; }
  [[nodiscard]] const BoardModel& FG1() const { return fg1_; }
  [[nodiscard]] BoardModel& FG2() { return fg2_; }
  [[nodiscard]] const BoardModel& FG2() const { return fg2_; }
  [[nodiscard]] const NavalBoard& Board() const { return board_; }
  [[nodiscard]] bool ReceivingFleet() const { return receiving_fleet_; }

 protected:
  void LoadGame() override;
  void ResetForSession() override { InitFleet(); }
  void ResetForNewGame() override { InitFleet(); }
  void FirstTurnSettled() override;
  void DescribeSide(Player player, ScoreboardSide& side) const override;
  [[nodiscard]] QString MoveWord() const override { return QStringLiteral("Dispara"); }
  [[nodiscard]] KeyHints Keys() const override;
  [[nodiscard]] bool OwnPlaced() const override { return ready_flags_[OwnPlayer()]; }

 private:
  enum class Sound { Water, Hit, Sunk };

  void InitFleet();

  // ---- Placing ----
  void ClickToPlace(Coordinate cell);
  void ShipPlaced(const PlacementOutcome& outcome);
  void RemoveShip(int number);
  void ConfirmWithKey();
  void ListShipsToPlace();
  // Sends the own fleet and that it is ready. Placing is over when that went well.
  void SendFleet();

  // ---- Exchange ----
  void ReceiveFleet(const QString& data);
  void OpponentReady();
  void BeginFiring();

  // ---- Firing ----
  void FireShot(Coordinate cell);
  void ShipHit(const ShotOutcome& outcome);
  void Win();
  void ReceiveShot(const QString& payload);
  QString HitReport(const ShotOutcome& outcome);
  void Lost();
  void ShowFleetStatus();

  // ---- What the grids show ----
  void SetGameOver(bool over);
  // Whose sea FG1 is, and how it is called.
  void ShowSea(const QString& caption, Player owner);
  void ShowFirstEnd();
  void ShowOwnFleet();
  // Draws ship `number` of FleetTable, which lies on the sea, as it is now.
  void DrawShip(BoardModel& grid, int number);
  static void EmptyGrid(BoardModel& grid);
  // What TBEstado says of a cell of FG1, and a screen reader too.
  [[nodiscard]] QString DescribeCell(CellIndex cell) const;
  [[nodiscard]] QString DescribeOwnCell(CellIndex cell) const;
  void PlaySound(Sound sound);

  [[nodiscard]] QString Name(int ship) const;  // trimmed, of FleetTable

  NavalBoard board_;
  BoardModel fg1_;
  BoardModel fg2_;
  bool receiving_fleet_ = false;  // a fleet is being unpacked; stays set for good when one was malformed
};

}  // namespace brontavia
