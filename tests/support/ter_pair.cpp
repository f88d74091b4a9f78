#include "tests/support/ter_pair.h"

namespace brontavia::test {

QString TerCopy::Shown() const {
  QString shown;
  for (int cell = 0; cell < kTerCells; ++cell) shown += Flow.FG1().Cell({cell / kTerSide, cell % kTerSide}).Text;
  return shown;
}

void TerPair::Connect(const Handshake& answers) {
  ExpectHandshake(answers);
  Ask();
  Settle();
}

void TerPair::Play(std::initializer_list<int> cells) {
  for (const int cell : cells) {
    Copy(Server.Flow.State().CurrentTurn).Click(cell);
    Settle();
  }
}

}  // namespace brontavia::test
