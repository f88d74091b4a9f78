#include "net/player_names.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

struct Name {
  const char* Test;
  QStringView Typed;
  QStringView Padded;
  QStringView Trimmed;
};

void PrintTo(const Name& name, std::ostream* out) { *out << name.Test; }

class PlayerName : public testing::TestWithParam<Name> {};

TEST_P(PlayerName, HasFifteenCharacters) {
  PlayerNames names;
  names.Set(Player::Client, GetParam().Typed);
  EXPECT_EQ(names.Padded(Player::Client).toStdU16String(), GetParam().Padded.toString().toStdU16String());
  EXPECT_EQ(names.Padded(Player::Client).size(), 15);
  EXPECT_EQ(names.Trimmed(Player::Client).toStdU16String(), GetParam().Trimmed.toString().toStdU16String());
}

constexpr Name kNames[] = {
    {"ShortIsPadded", u"Ana", u"Ana            ", u"Ana"},
    {"FifteenStay", u"Maximiliana Paz", u"Maximiliana Paz", u"Maximiliana Paz"},
    {"SixteenAreCut", u"Maximiliana Pazo", u"Maximiliana Paz", u"Maximiliana Paz"},
    {"TwentyAreCut", u"12345678901234567890", u"123456789012345", u"123456789012345"},
    {"EmptyIsBlank", u"", u"               ", u""},
    {"BlanksAreBlank", u"    ", u"               ", u""},
    {"BlanksInFrontCount", u"  Ana", u"  Ana          ", u"Ana"},
    {"BlanksInsideStay", u"Ana  Luz", u"Ana  Luz       ", u"Ana  Luz"},
    {"CutLeavesABlankAtTheEnd", u"Maximiliana de Paz", u"Maximiliana de ", u"Maximiliana de"},
    {"NextMessageInTheSameRead", u"Anaturno|3", u"Anaturno|3     ", u"Anaturno|3"},
    {"MarkupIsText", u"<b>Ana</b>", u"<b>Ana</b>     ", u"<b>Ana</b>"},
};
INSTANTIATE_TEST_SUITE_P(Name, PlayerName, testing::ValuesIn(kNames),
                         [](const auto& tested) { return std::string(tested.param.Test); });

TEST(PlayerNames, AreBlankUntilTheyAreKnown) {
  const PlayerNames names;
  for (const Player player : kBothPlayers) {
    EXPECT_EQ(names.Padded(player), QString(15, u' '));
    EXPECT_TRUE(names.Trimmed(player).isEmpty());
  }
}

TEST(PlayerNames, AreKeptApart) {
  PlayerNames names;
  names.Set(Player::Server, u"Ana");
  names.Set(Player::Client, u"Luis");
  names.Set(Player::Server, u"Eva");
  EXPECT_EQ(names.Trimmed(Player::Server), u"Eva"_s);
  EXPECT_EQ(names.Trimmed(Player::Client), u"Luis"_s);
}

}  // namespace
}  // namespace brontavia
