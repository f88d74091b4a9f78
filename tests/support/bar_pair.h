// Two copies of the naval battle.
#pragma once

#include <array>

#include "games/naval/naval_flow.h"
#include "tests/support/cell_named.h"
#include "tests/support/game_pair.h"

namespace brontavia::test {

struct BarCopy : GameCopy<NavalFlow> {
  using GameCopy::GameCopy;

  // As the window does: makes the cell of FG1 current and clicks it.
  void Click(Coordinate cell);
  void Click(const QString& name) { Click(CellNamed(name)); }
  [[nodiscard]] CellContent FG1(const QString& name) const;
  [[nodiscard]] CellContent FG2(const QString& name) const;
  // Clicks both ends of all seven ships of the test fleet. The question whether that is all is the test's.
  void PlaceFleet();
};

// Where the test fleet lies, in the order of FleetTable.
struct ShipEnds {
  QString Start;
  QString End;
};
extern const std::array<ShipEnds, kShipsPerFleet> kTestFleet;

namespace box {
inline const QString kNaval = QStringLiteral("Batalla naval");
inline const QString kPlaceShips = QStringLiteral("Coloque sus barcos");
inline const QString kFinished = QStringLiteral("¿Ha terminado de colocar los barcos?");
inline const QString kWaitForOther = QStringLiteral("Espere a que el otro jugador termine de colocar sus barcos ");
inline const QString kReadyOwnTurn =
    QStringLiteral("Ambos jugadores están listos para empezar a disparar,  es su turno.");
inline const QString kReadyOtherTurn =
    QStringLiteral("Ambos jugadores están listos para empezar a disparar,  le toca al otro jugador.");
}  // namespace box

class BarPair : public GamePair<BarCopy> {
 public:
  explicit BarPair(unsigned seed = 1) : GamePair(seed) {}

  // Until both have been told to place their ships; the server has the first turn.
  void Connect();
  // Connect, and on until both fleets are exchanged. The server places first.
  void BeginBattle();
};

}  // namespace brontavia::test
