#include "seams/scoreboard.h"

#include <QStringList>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// What `each` says of the sides whose names are known; sides of which it says nothing are left out.
template <typename Teller>
QStringList OfSides(const Scoreboard& scoreboard, Teller each) {
  QStringList told;
  for (const ScoreboardSide* side : {&scoreboard.Own, &scoreboard.Other}) {
    if (!side->Name.isEmpty()) told << each(*side);
  }
  told.removeAll(QString());
  return told;
}

QString ScoreOf(const ScoreboardSide& side) { return side.Name + u' ' + QString::number(side.Score); }

// What the player does stands before the name, what can be said of both at once behind it.
QString StateOf(const ScoreboardSide& side) {
  if (side.StateWord.isEmpty() || side.State == PlayerState::Drew) return {};
  if (side.State == PlayerState::ToMove || side.State == PlayerState::Won) {
    return side.StateWord + u' ' + side.Name + u'.';
  }
  return side.Name + u": " + side.StateWord.front().toLower() + side.StateWord.mid(1) + u'.';
}

QString DrawOf(const ScoreboardSide& side) {
  return side.State == PlayerState::Drew && !side.StateWord.isEmpty() ? side.StateWord + u'.' : QString();
}

QString ClockOf(const ScoreboardSide& side) {
  return side.Clock ? u"Reloj de "_s + side.Name + u' ' + side.Clock->Time + u'.' : QString();
}

QString PieceOf(const ScoreboardSide& side) {
  if (!side.Fought) return {};
  return side.Fought->Name + u" de "_s + side.Name + (side.Fought->Fell ? u", cae"_s : QString());
}

}  // namespace

QString SentenceOf(const Scoreboard& scoreboard) {
  const QStringList scores = OfSides(scoreboard, ScoreOf);
  if (scores.isEmpty()) return {};
  QStringList draw = OfSides(scoreboard, DrawOf);
  draw.removeDuplicates();
  const QStringList fought = OfSides(scoreboard, PieceOf);
  QStringList sentences{scores.join(u", ") + u'.'};
  sentences << OfSides(scoreboard, StateOf) << draw << OfSides(scoreboard, ClockOf);
  if (!fought.isEmpty()) sentences << u"Combate: "_s + fought.join(u"; ") + u'.';
  return sentences.join(u' ');
}

}  // namespace brontavia
