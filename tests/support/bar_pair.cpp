#include "tests/support/bar_pair.h"

namespace brontavia::test {

using namespace Qt::StringLiterals;

const std::array<ShipEnds, kShipsPerFleet> kTestFleet{{{u"A1"_s, u"E1"_s},
                                                       {u"A3"_s, u"D3"_s},
                                                       {u"A5"_s, u"C5"_s},
                                                       {u"E5"_s, u"G5"_s},
                                                       {u"A7"_s, u"C7"_s},
                                                       {u"E7"_s, u"F7"_s},
                                                       {u"A9"_s, u"B9"_s}}};

void BarCopy::Click(Coordinate cell) {
  if (Flow.Ended()) return;  // the window has gone
  const CellIndex index{.Row = cell.Row, .Column = cell.Column};
  Flow.FG1().SetCurrentCell(index);
  Flow.BoardClicked(index);
}

CellContent BarCopy::FG1(const QString& name) const {
  const Coordinate cell = CellNamed(name);
  return Flow.FG1().Cell({.Row = cell.Row, .Column = cell.Column});
}

CellContent BarCopy::FG2(const QString& name) const {
  const Coordinate cell = CellNamed(name);
  return Flow.FG2().Cell({.Row = cell.Row, .Column = cell.Column});
}

void BarCopy::PlaceFleet() {
  for (const ShipEnds& ship : kTestFleet) {
    Click(ship.Start);
    Click(ship.End);
  }
}

void BarPair::Connect() {
  ExpectHandshake({});
  for (BarCopy* copy : {&Server, &Client}) copy->Dialogs.Expect({}, box::kPlaceShips);
  Ask();
  Settle();
}

void BarPair::BeginBattle() {
  Connect();
  Server.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Server.Dialogs.Expect({}, box::kWaitForOther);
  Server.PlaceFleet();
  Settle();
  Client.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Client.Dialogs.Expect({}, box::kReadyOtherTurn);
  Server.Dialogs.Expect({}, box::kReadyOwnTurn);
  Client.PlaceFleet();
  Settle();
}

}  // namespace brontavia::test
