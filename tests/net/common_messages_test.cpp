#include "net/common_messages.h"

#include <gtest/gtest.h>

#include <string>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// ---- Acceptance ----

TEST(Acceptance, NamesTheGame) { EXPECT_EQ(AcceptanceText(u"TER"), u"Solicitud aceptada|TER"_s); }

struct Accepting {
  const char* Name;
  QStringView Text;
  bool Accepts;
};

void PrintTo(const Accepting& accepting, std::ostream* out) { *out << accepting.Name; }

class AcceptanceOfTer : public testing::TestWithParam<Accepting> {};

TEST_P(AcceptanceOfTer, IsFoundByItsCode) { EXPECT_EQ(AcceptsGame(GetParam().Text, u"TER"), GetParam().Accepts); }

constexpr Accepting kAcceptings[] = {
    {"OwnGame", u"Solicitud aceptada|TER", true},
    {"AnotherGame", u"Solicitud aceptada|BAR", false},
    {"NameInTheSameRead", u"Solicitud aceptada|TERNombre|Ana", true},
    {"CodeLaterInTheRead", u"Solicitud aceptada|BAR|TER", true},
    {"CodeWithoutBar", u"Solicitud aceptadaTER", false},
    {"SmallLetters", u"Solicitud aceptada|ter", false},
    {"CutInTheCode", u"Solicitud aceptada|TE", false},
    {"NoCode", u"Solicitud aceptada", false},
};
INSTANTIATE_TEST_SUITE_P(Accepting, AcceptanceOfTer, testing::ValuesIn(kAcceptings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

// ---- Names ----

TEST(NameMessage, CarriesTheWholeName) {
  EXPECT_EQ(NameText(u"Ana"), u"Nombre|Ana"_s);
  EXPECT_EQ(NameText(u"12345678901234567890"), u"Nombre|12345678901234567890"_s);
  EXPECT_EQ(NameText(u"  Ana "), u"Nombre|  Ana "_s);
}

// ---- Choice of the first turn ----

TEST(TurnChoiceMessage, LosesItsOuterBlanksAlone) {
  EXPECT_EQ(TurnChoiceText(u"3"), u"turno|3"_s);
  EXPECT_EQ(TurnChoiceText(u"  1 5 "), u"turno|1 5"_s);
  EXPECT_EQ(TurnChoiceText(u"2,abc"), u"turno|2,abc"_s);
}

struct Choice {
  const char* Name;
  QStringView Payload;
  int ServerView;
};

void PrintTo(const Choice& choice, std::ostream* out) { *out << choice.Name; }

class TurnChoice : public testing::TestWithParam<Choice> {};

TEST_P(TurnChoice, IsTurnedIntoTheServersView) { EXPECT_EQ(ReadTurnChoice(GetParam().Payload), GetParam().ServerView); }

constexpr Choice kChoices[] = {
    {"ClientStarts", u"1", 2},
    {"ServerStarts", u"2", 1},
    {"Draw", u"3", 3},
    {"HalfGoesToEven", u"1.5", 1},
    {"HalfThatReachesThree", u"2.5", 1},
    {"NearlyThree", u"2.6", 3},
    {"Nothing", u"", 3},
    {"Letters", u"abc", 3},
    {"EndOfAPassedTurn", u"rno|", 3},
    {"Zero", u"0", 3},
    {"AboveThreeStays", u"7", 7},
    {"Negative", u"-1", 4},
    {"NextMessageInTheSameRead", u"1Nombre|Ana", 2},
    {"BeyondSixteenBits", u"99999", 32767},
    {"BelowSixteenBits", u"-99999", 32767},
    {"Infinite", u"1e999", 32767},
};
INSTANTIATE_TEST_SUITE_P(Choice, TurnChoice, testing::ValuesIn(kChoices),
                         [](const auto& tested) { return std::string(tested.param.Name); });

// ---- Decision of the first turn ----

struct Decision {
  const char* Name;
  Player Starter;
  bool Drawn;
  QStringView Text;
};

void PrintTo(const Decision& decision, std::ostream* out) { *out << decision.Name; }

class TurnDecided : public testing::TestWithParam<Decision> {};

TEST_P(TurnDecided, IsWritten) {
  EXPECT_EQ(TurnDecidedText({.Starter = GetParam().Starter, .Drawn = GetParam().Drawn}), GetParam().Text.toString());
}

TEST_P(TurnDecided, IsReadBack) {
  const auto decision = ReadTurnDecision(GetParam().Text);
  ASSERT_TRUE(decision);
  EXPECT_EQ(decision->Starter, GetParam().Starter);
  EXPECT_EQ(decision->Drawn, GetParam().Drawn);
}

constexpr Decision kDecisions[] = {
    {"ServerByMutualDecision", Player::Server, false, u"Turnodef|00"},
    {"ClientByMutualDecision", Player::Client, false, u"Turnodef|10"},
    {"ServerByDraw", Player::Server, true, u"Turnodef|01"},
    {"ClientByDraw", Player::Client, true, u"Turnodef|11"},
};
INSTANTIATE_TEST_SUITE_P(Decision, TurnDecided, testing::ValuesIn(kDecisions),
                         [](const auto& tested) { return std::string(tested.param.Name); });

struct StrangeDecision {
  const char* Name;
  QStringView Text;
  int Starter;  // -1: refused
  bool Drawn;
};

void PrintTo(const StrangeDecision& decision, std::ostream* out) { *out << decision.Name; }

class StrangeTurnDecided : public testing::TestWithParam<StrangeDecision> {};

TEST_P(StrangeTurnDecided, IsReadByPositionOrRefused) {
  const auto decision = ReadTurnDecision(GetParam().Text);
  ASSERT_EQ(decision.has_value(), GetParam().Starter >= 0);
  if (!decision) return;
  EXPECT_EQ(NumberOf(decision->Starter), GetParam().Starter);
  EXPECT_EQ(decision->Drawn, GetParam().Drawn);
}

constexpr StrangeDecision kStrangeDecisions[] = {
    {"CutBeforeTheStarter", u"Turnodef|", 0, true},
    {"CutBehindTheClient", u"Turnodef|1", 1, true},
    {"CutBehindTheServer", u"Turnodef|0", 0, false},
    {"NextMessageInTheSameRead", u"Turnodef|10Jug|-1|4", 1, true},
    {"NextMessageThatEndsInZero", u"Turnodef|11Jug|-1|0", 1, false},
    {"AnotherMessageInFront", u"Nombre|AnaTurnodef|10", 0, false},
    {"ThirdPlayer", u"Turnodef|20", -1, false},
    {"NinthPlayer", u"Turnodef|90", -1, false},
    {"LetterIsTheServer", u"Turnodef|x0", 0, false},
    {"SignIsTheServer", u"Turnodef|-10", 0, false},
    {"DigitBeforeThePosition", u"Turnodef| 10", 0, false},
    {"HowIsNeither", u"Turnodef|1x", 1, true},
};
INSTANTIATE_TEST_SUITE_P(Decision, StrangeTurnDecided, testing::ValuesIn(kStrangeDecisions),
                         [](const auto& tested) { return std::string(tested.param.Name); });

}  // namespace
}  // namespace brontavia
