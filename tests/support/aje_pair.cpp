#include "tests/support/aje_pair.h"

namespace brontavia::test {

void AjeCopy::Click(const QString& square) {
  const CellIndex cell = Flow.IndexOf(SquareNamed(square));
  Flow.FG1().SetCurrentCell(cell);
  Flow.BoardClicked(cell);
}

void AjePair::Connect() {
  ExpectHandshake({}, box::kColourQuestion);
  Ask();
  Settle();
}

void AjePair::Play(const QString& moves) {
  for (const QString& move : moves.split(u' ')) {
    AjeCopy& mover = Copy(Server.Flow.State().CurrentTurn);
    mover.Click(move.left(2));
    mover.Click(move.mid(2));
    Settle();
  }
}

}  // namespace brontavia::test
