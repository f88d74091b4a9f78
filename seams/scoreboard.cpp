#include "seams/scoreboard.h"

#include <QStringList>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// What a side's plate says besides name and score; empty when nothing.
QString StateSentence(const ScoreboardSide& side) {
  return side.StateWord.isEmpty() ? QString() : side.StateWord + u' ' + side.Name + u'.';
}

QString ClockSentence(const ScoreboardSide& side) {
  return side.Clock ? u"Reloj de "_s + side.Name + u' ' + side.Clock->Time + u'.' : QString();
}

}  // namespace

QString SentenceOf(const Scoreboard& scoreboard) {
  const auto& [own, other] = scoreboard;
  QStringList sentences{own.Name + u' ' + QString::number(own.Score) + u", " + other.Name + u' ' +
                        QString::number(other.Score) + u'.'};
  const bool drawn = own.State == PlayerState::Drew && other.State == PlayerState::Drew;
  for (const ScoreboardSide* side : {&own, &other}) {
    sentences << (drawn ? QString() : StateSentence(*side)) << ClockSentence(*side);
  }
  if (drawn) sentences << own.StateWord + u'.';
  sentences.removeAll(QString());
  return sentences.join(u' ');
}

}  // namespace brontavia
