#include "tests/support/ending_sessions.h"
#include "tests/support/random_games.h"
#include "tests/support/strategy_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// Mostly what brings a fight on: whole armies at random, moves, passes.
void Act(StrategyCopy& copy, const std::function<int(int)>& below) {
  switch (below(8)) {
    case 0:
      copy.Flow.KeyPressed(Qt::Key_F3);
      return;
    case 1:
      copy.Flow.KeyPressed(Qt::Key_Escape);
      return;
    case 2:
      copy.Flow.KeyPressed(Qt::Key_F2);
      return;
    default:
      copy.Click({.Column = 1 + below(7), .Row = 1 + below(8)});
      return;
  }
}

class StrategyEnding : public testing::TestWithParam<const StrategyGame*> {};

TEST_P(StrategyEnding, NothingIsWrittenAfterAnEndInsideABoxAMenuOrAWait) {
  const EndingGame<StrategyCopy> game{
      .Act = Act,
      .Reads = {u"Datos|101,102,103,"_s, u"Listo|"_s, u"Jug|01,04,01,05,01,"_s, u"Jug|01,04,01,05,00,"_s,
                u"Haganado|"_s, u"Seguir|Si"_s, u"Pasaturno|"_s, u"Turnodef|10"_s, u"Listo|Haganado|Jug|"_s,
                u"Solicitud aceptada|EST|MES"_s, u"Solicitud aceptada|TER"_s}};
  EndSessionsInsideEverything<StrategyPair>(kRandomGames / 20, game, *GetParam());
}

INSTANTIATE_TEST_SUITE_P(Of, StrategyEnding, testing::Values(&kGameEST, &kGameMES),
                         [](const auto& tested) { return tested.param->Window.Window.toString().toStdString(); });

}  // namespace
}  // namespace brontavia::test
