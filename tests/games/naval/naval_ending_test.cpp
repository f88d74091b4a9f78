#include "tests/support/bar_pair.h"
#include "tests/support/ending_sessions.h"
#include "tests/support/random_games.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kFleet = u"Datos|3))-)4)+,+5)-+-6)/+/7)1+18/)0)9/+0+"_s;

// Mostly what brings a battle on: whole fleets, shots, the end.
void Act(BarCopy& copy, const std::function<int(int)>& below) {
  if (below(4) == 0 && copy.Flow.Board().ShipsToPlace() > 0) {
    copy.PlaceFleet();
  } else if (below(10) == 0) {
    copy.Flow.BoardKeyPressed(Qt::Key_T);
  } else {
    copy.Click({.Column = 1 + below(kSeaSide), .Row = 1 + below(kSeaSide)});
  }
}

TEST(NavalEnding, NothingIsWrittenAfterAnEndInsideABoxOrAWait) {
  const EndingGame<BarCopy> game{
      .Act = Act,
      .Reads = {kFleet, u"Datos|3)"_s, u"Listo|"_s, u"Jug|))A"_s, u"Jug|))I"_s, u"Haganado|"_s, u"Seguir|Si"_s,
                u"turno|1"_s, u"Turnodef|10"_s, u"Haganado|Listo|Datos|"_s, u"Solicitud aceptada|BAR"_s,
                u"Solicitud aceptada|TER"_s}};
  EndSessionsInsideEverything<BarPair>(kRandomGames / 20, game);
}

}  // namespace
}  // namespace brontavia::test
