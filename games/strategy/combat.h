// What becomes of an attack.
#pragma once

#include "games/strategy/strategy_board.h"

namespace brontavia {

// In the order in which the rules are tested: the first that fits decides.
enum class Combat {
  FlagTaken,      // whoever attacks the flag has won the game
  BothDestroyed,  // equal ranks
  BombDisarmed,   // a miner moves onto a bomb
  BombExplodes,   // any other attacker dies on it
  Defeat,         // the lower rank attacks
  Victory,        // the higher rank attacks
  MarshalKilled,  // by an attacking spy
  SpyKilled       // which has attacked anything else
};

// The attacker's rank is movable, the defender's any.
Combat ResolveCombat(Rank attacker, Rank defender);

// What an attack leaves on the board; its value is the result code of the move message.
enum class CombatResult {
  AttackerDestroyed = 0,
  AttackerWins = 1,  // a plain move too
  BothDestroyed = 2,
  FlagTaken = 3  // never sent
};

CombatResult ResultOf(Combat combat);

// `attacker`, the code of a piece that stood on `from`, has gone to `to`: what it leaves there. A bomb that has
// destroyed its attacker becomes a revealed one; a taken flag stays where it is. Both cells lie on the board.
void ApplyResult(StrategyBoard& board, CellCode attacker, Coordinate from, Coordinate to, CombatResult result);

}  // namespace brontavia
