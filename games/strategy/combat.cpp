#include "games/strategy/combat.h"

namespace brontavia {

Combat ResolveCombat(Rank attacker, Rank defender) {
  if (defender == Rank::Flag) return Combat::FlagTaken;
  if (attacker == defender) return Combat::BothDestroyed;
  if (defender == Rank::Bomb || defender == Rank::RevealedBomb) {
    return attacker == Rank::Miner ? Combat::BombDisarmed : Combat::BombExplodes;
  }
  if (attacker != Rank::Spy) return attacker < defender ? Combat::Defeat : Combat::Victory;
  return defender == Rank::Marshal ? Combat::MarshalKilled : Combat::SpyKilled;
}

CombatResult ResultOf(Combat combat) {
  switch (combat) {
    case Combat::FlagTaken:
      return CombatResult::FlagTaken;
    case Combat::BothDestroyed:
      return CombatResult::BothDestroyed;
    case Combat::BombDisarmed:
    case Combat::Victory:
    case Combat::MarshalKilled:
      return CombatResult::AttackerWins;
    case Combat::BombExplodes:
    case Combat::Defeat:
    case Combat::SpyKilled:
      break;
  }
  return CombatResult::AttackerDestroyed;
}

void ApplyResult(StrategyBoard& board, CellCode attacker, Coordinate from, Coordinate to, CombatResult result) {
  switch (result) {
    case CombatResult::AttackerDestroyed:
      if (const auto defender = board.PieceAt(to); defender && defender->Rank == Rank::Bomb) {
        board.Set(to, CodeOf({.Side = defender->Side, .Rank = Rank::RevealedBomb}));
      }
      break;
    case CombatResult::AttackerWins:
      board.Set(to, attacker);
      break;
    case CombatResult::BothDestroyed:
      board.Set(to, kEmptyLand);
      break;
    case CombatResult::FlagTaken:
      break;
  }
  board.Set(from, kEmptyLand);
}

}  // namespace brontavia
