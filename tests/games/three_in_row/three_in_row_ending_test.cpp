#include "tests/support/ending_sessions.h"
#include "tests/support/random_games.h"
#include "tests/support/ter_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

TEST(ThreeInRowEnding, NothingIsWrittenAfterAnEndInsideABoxOrAWait) {
  const EndingGame<TerCopy> game{
      .Act = [](TerCopy& copy, const auto& below) { copy.Click(below(kTerCells)); },
      .Reads = {u"Jug|-1|4"_s, u"Haganado|0"_s, u"Seguir|Si"_s, u"Nombre|x"_s, u"turno|3"_s, u"Turnodef|10"_s,
                u"Solicitud aceptada|TER"_s, u"Haganado|Seguir|SiJug|"_s, u"Solicitud aceptada|BAR"_s}};
  EndSessionsInsideEverything<TerPair>(kRandomGames / 10, game);
}

}  // namespace
}  // namespace brontavia::test
