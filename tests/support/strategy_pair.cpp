#include "tests/support/strategy_pair.h"

namespace brontavia::test {

using namespace Qt::StringLiterals;

const Layout kEstLayout{u"44445555CB"_s, u"44445AA999"_s, u"8888777766"_s, u"6632222221"_s};
const Layout kMesLayout{u"444455C"_s, u"5BA9988"_s, u"7732221"_s};

void StrategyCopy::Click(Coordinate cell) {
  Flow.FG1().SetCurrentCell(Flow.IndexOf(cell));
  Flow.BoardClicked(Flow.IndexOf(cell));
}

void StrategyCopy::Place(const Layout& layout) {
  for (int row = static_cast<int>(layout.size()); row >= 1; --row) {
    const QString& ranks = layout[layout.size() - row];
    for (int column = 1; column <= ranks.size(); ++column) {
      const int rank = ranks.mid(column - 1, 1).toInt(nullptr, 16);
      Dialogs.AnswerMenu = [rank](const QList<MenuItem>&) { return rank - 1; };
      Click({.Column = column, .Row = row});
    }
  }
  Dialogs.AnswerMenu = {};
}

void StrategyPair::Connect() {
  ExpectHandshake({});
  Ask();
  Settle();
}

void StrategyPair::BeginFight(const Layout& server, const Layout& client) {
  const QString title = game_.PlacedTitle.toString();
  Connect();
  Server.Dialogs.Expect(title, box::kPlaced, Button::Yes);
  Server.Dialogs.Expect({}, box::kWaitForArmy);
  Server.Place(server);
  Settle();
  Client.Dialogs.Expect(title, box::kPlaced, Button::Yes);
  Client.Dialogs.Expect({}, box::kFightOtherTurn);
  Server.Dialogs.Expect({}, box::kFightOwnTurn);
  if (game_.TellsReadyOpponent) Server.Dialogs.Expect({}, box::kPlayOwnTurn);
  Client.Place(client);
  Settle();
}

void StrategyPair::Move(const QString& from, const QString& to) {
  StrategyCopy& mover = Copy(Server.Flow.State().CurrentTurn);
  mover.Click(from);
  mover.Click(to);
  Settle();
}

}  // namespace brontavia::test
