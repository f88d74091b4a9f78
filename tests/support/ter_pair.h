// Two copies of three in a row.
#pragma once

#include "games/three_in_row/three_in_row_flow.h"
#include "tests/support/game_pair.h"

namespace brontavia::test {

struct TerCopy : GameCopy<ThreeInRowFlow> {
  using GameCopy::GameCopy;

  // Clicks cell 0..8.
  void Click(int cell) { Flow.BoardClicked({cell / kTerSide, cell % kTerSide}); }
  // The nine cells as FG1 shows them, row by row.
  [[nodiscard]] QString Shown() const;
};

class TerPair : public GamePair<TerCopy> {
 public:
  explicit TerPair(unsigned seed = 1) : GamePair(seed) {}

  // Ask, and on with scripted answers until the first turn is settled.
  void Connect(const Handshake& answers = {});
  // Clicks in turn, beginning with the player to move, each settled before the next.
  void Play(std::initializer_list<int> cells);
};

namespace box {
inline const QString kRematchTitle = QStringLiteral("Tres en raya");
inline const QString kCloseTitle = QStringLiteral("Tres en raya");
inline const QString kWonTitle = QStringLiteral("Enhorabuena");
inline const QString kWon = QStringLiteral(
    "¡Ha ganado! Consiguió hacer tres en raya antes que su rival.\r\nPulse sobre el tablero para continuar.");
inline const QString kLostTitle = QStringLiteral("Ha perdido");
inline const QString kLostEnding =
    QStringLiteral(" ha conseguido tres en raya antes que usted.\r\nPulse sobre el tablero para continuar.");
}  // namespace box

}  // namespace brontavia::test
