#include "seams/scoreboard.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

Scoreboard Names() { return {{.Name = u"Ana"_s, .Score = 1}, {.Name = u"Luis"_s}}; }

Scoreboard States(PlayerState own, const QString& own_word, PlayerState other, const QString& other_word) {
  Scoreboard scoreboard = Names();
  scoreboard.Own.State = own;
  scoreboard.Own.StateWord = own_word;
  scoreboard.Other.State = other;
  scoreboard.Other.StateWord = other_word;
  return scoreboard;
}

TEST(ScoreboardSentence, TellsTheOwnSideFirst) { EXPECT_EQ(SentenceOf(Names()), u"Ana 1, Luis 0."_s); }

TEST(ScoreboardSentence, TellsWhoMoves) {
  EXPECT_EQ(SentenceOf(States(PlayerState::ToMove, u"Mueve"_s, PlayerState::Waiting, {})),
            u"Ana 1, Luis 0. Mueve Ana."_s);
  EXPECT_EQ(SentenceOf(States(PlayerState::Waiting, {}, PlayerState::ToMove, u"Dispara"_s)),
            u"Ana 1, Luis 0. Dispara Luis."_s);
}

TEST(ScoreboardSentence, TellsWhoPlacesAndWhoIsReady) {
  EXPECT_EQ(
      SentenceOf(States(PlayerState::Placing, u"Coloca sus barcos"_s, PlayerState::Placing, u"Coloca sus barcos"_s)),
      u"Ana 1, Luis 0. Ana: coloca sus barcos. Luis: coloca sus barcos."_s);
  EXPECT_EQ(SentenceOf(States(PlayerState::Ready, u"Listo"_s, PlayerState::Placing, u"Coloca su ejército"_s)),
            u"Ana 1, Luis 0. Ana: listo. Luis: coloca su ejército."_s);
}

TEST(ScoreboardSentence, TellsWhoHasWon) {
  EXPECT_EQ(SentenceOf(States(PlayerState::Waiting, {}, PlayerState::Won, u"Ha ganado"_s)),
            u"Ana 1, Luis 0. Ha ganado Luis."_s);
}

TEST(ScoreboardSentence, TellsADrawOnce) {
  EXPECT_EQ(SentenceOf(States(PlayerState::Drew, u"Tablas"_s, PlayerState::Drew, u"Tablas"_s)),
            u"Ana 1, Luis 0. Tablas."_s);
}

TEST(ScoreboardSentence, TellsTheClocks) {
  Scoreboard scoreboard = States(PlayerState::Waiting, {}, PlayerState::ToMove, u"Mueve"_s);
  scoreboard.Own.Clock = {.Time = u"04:12"_s};
  scoreboard.Other.Clock = {.Time = u"03:47"_s, .Runs = true};
  EXPECT_EQ(SentenceOf(scoreboard), u"Ana 1, Luis 0. Mueve Luis. Reloj de Ana 04:12. Reloj de Luis 03:47."_s);
}

TEST(ScoreboardSentence, TellsWhatFoughtAsFarAsItIsKnown) {
  Scoreboard scoreboard = Names();
  scoreboard.Own.Fought = {.Name = u"Sargento"_s, .Fell = true};
  EXPECT_EQ(SentenceOf(scoreboard), u"Ana 1, Luis 0. Combate: Sargento de Ana, cae."_s);
  scoreboard.Other.Fought = {.Name = u"Capitán"_s};
  EXPECT_EQ(SentenceOf(scoreboard), u"Ana 1, Luis 0. Combate: Sargento de Ana, cae; Capitán de Luis."_s);
}

TEST(ScoreboardSentence, SaysNothingOfThoseWhoseNamesAreUnknown) {
  EXPECT_EQ(SentenceOf({}), QString());
  Scoreboard scoreboard = States(PlayerState::ToMove, u"Mueve"_s, PlayerState::Placing, u"Coloca sus barcos"_s);
  scoreboard.Other.Name.clear();
  scoreboard.Other.Clock = {.Time = u"03:47"_s};
  EXPECT_EQ(SentenceOf(scoreboard), u"Ana 1. Mueve Ana."_s);
}

}  // namespace
}  // namespace brontavia::test
