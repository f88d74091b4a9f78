#include "games/strategy/combat.h"

namespace brontavia {
namespace {

constexpr CellCode kRevealing = rank::RevealedBomb - rank::kBomb;

}  // namespace

Combat ResolveCombat(int attacker, int defender) {
  if (defender == rank::kFlag) return Combat::FlagTaken;
  if (attacker == defender) return Combat::BothDestroyed;
  if (defender == rank::kBomb || defender == rank::RevealedBomb) {
    return attacker == rank::kMiner ? Combat::BombDisarmed : Combat::BombExplodes;
  }
  if (attacker != rank::kSpy) return attacker < defender ? Combat::Defeat : Combat::Victory;
  return defender == rank::kMarshal ? Combat::MarshalKilled : Combat::SpyKilled;
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
      if (RankOf(board.At(to)) == rank::kBomb) board.Set(to, static_cast<CellCode>(board.At(to) + kRevealing));
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
