// Two copies of a strategy game.
#pragma once

#include "games/strategy/strategy_flow.h"
#include "tests/support/cell_named.h"
#include "tests/support/game_pair.h"

namespace brontavia::test {

// An army in the own zone as its player sees it: rows from the innermost one down, a hexadecimal digit for each rank.
using Layout = QStringList;
extern const Layout kEstLayout;
extern const Layout kMesLayout;

// What the armies are written in: RGB(112, 0, 0) and RGB(0, 0, 112).
inline constexpr ColourValue kRed = 0x000070;
inline constexpr ColourValue kBlue = 0x700000;

struct StrategyCopy : GameCopy<StrategyFlow> {
  using GameCopy::GameCopy;

  // As the window does: makes the cell of FG1 current and clicks it.
  void Click(Coordinate cell);
  void Click(const QString& name) { Click(CellNamed(name)); }
  [[nodiscard]] CellContent Shown(const QString& name) const { return Flow.FG1().Cell(Index(name)); }
  [[nodiscard]] QString Description(const QString& name) const { return Flow.FG1().Description(Index(name)); }
  [[nodiscard]] CellCode At(const QString& name) const { return Flow.StrategyBoard().At(CellNamed(name)); }
  // Places a whole army by clicks and menus. The question whether that is all is the test's.
  void Place(const Layout& layout);

 private:
  [[nodiscard]] CellIndex Index(const QString& name) const { return Flow.IndexOf(CellNamed(name)); }
};

namespace box {
inline const QString kMenu = QStringLiteral("MnuTropa");
inline const QString kPlaced = QStringLiteral("¿Ha terminado de colocar sus fichas?");
inline const QString kWaitForArmy = QStringLiteral("Espere a que el otro jugador termine de colocar su ejército");
inline const QString kFightOwnTurn =
    QStringLiteral("Ambos jugadores están listos para empezar el combate,  es su turno.");
inline const QString kFightOtherTurn =
    QStringLiteral("Ambos jugadores están listos para empezar el combate,  le toca mover al otro jugador.");
inline const QString kPlayOwnTurn = QStringLiteral("Ambos jugadores están listos para empezar a jugar,  es su turno.");
inline const QString kPlayOtherTurn =
    QStringLiteral("Ambos jugadores están listos para empezar a jugar,  le toca al otro jugador.");
}  // namespace box

class StrategyPair : public GamePair<StrategyCopy> {
 public:
  explicit StrategyPair(const StrategyGame& game, unsigned seed = 1) : GamePair(seed, game), game_(game) {}

  // Until both are placing; the server has the first turn.
  void Connect();
  // Connect, and on until both armies are exchanged. The server places first.
  void BeginFight(const Layout& server, const Layout& client);
  // The copy that has the turn moves from one cell to another.
  void Move(const QString& from, const QString& to);

 private:
  const StrategyGame& game_;
};

}  // namespace brontavia::test
