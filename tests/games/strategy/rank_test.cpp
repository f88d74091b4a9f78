#include "games/strategy/rank.h"

#include <gtest/gtest.h>

namespace brontavia::test {
namespace {

struct NamedRank {
  brontavia::Rank Rank;
  int Number;
  std::u16string_view Name;
  bool Moves;
};
constexpr NamedRank kNamedRanks[] = {
    {Rank::Flag, 1, u"Bandera", false},
    {Rank::Bomb, 2, u"Bomba", false},
    {Rank::Spy, 3, u"Espía", true},
    {Rank::Scout, 4, u"Explorador", true},
    {Rank::Miner, 5, u"Minador", true},
    {Rank::Sergeant, 6, u"Sargento", true},
    {Rank::Lieutenant, 7, u"Teniente", true},
    {Rank::Captain, 8, u"Capitán", true},
    {Rank::Major, 9, u"Comandante", true},
    {Rank::Colonel, 10, u"Coronel", true},
    {Rank::General, 11, u"General", true},
    {Rank::Marshal, 12, u"Mariscal", true},
    {Rank::RevealedBomb, 13, u"Bomba", false},
};

TEST(Rank, HasItsNumberAndItsName) {
  for (const NamedRank& tested : kNamedRanks) {
    EXPECT_EQ(NumberOf(tested.Rank), tested.Number);
    EXPECT_EQ(RankName(tested.Rank), tested.Name) << tested.Number;
    EXPECT_EQ(IsMovable(tested.Rank), tested.Moves) << tested.Number;
  }
  EXPECT_EQ(std::size(kNamedRanks), static_cast<std::size_t>(kRanks));
}

TEST(Rank, OfAnArmyIsAnyButTheRevealedBombTheLowestFirst) {
  int number = 1;
  for (const Rank rank : kArmyRanks) EXPECT_EQ(NumberOf(rank), number++);
  EXPECT_EQ(number, NumberOf(Rank::RevealedBomb));
}

TEST(CellCode, TellsThePieceAndItsName) {
  for (const NamedRank& tested : kNamedRanks) {
    SCOPED_TRACE(tested.Number);
    for (const Player side : kBothPlayers) {
      const Piece piece{.Side = side, .Rank = tested.Rank};
      const auto code = static_cast<CellCode>((side == Player::Server ? 0 : 100) + tested.Number);
      EXPECT_EQ(CodeOf(piece), code);
      EXPECT_EQ(PieceOf(code), piece);
      EXPECT_TRUE(IsPieceOf(side, code));
      EXPECT_FALSE(IsPieceOf(OpponentOf(side), code));
      EXPECT_EQ(CellContentName(code), tested.Name);
    }
  }
  EXPECT_EQ(CellContentName(kEmptyLand), u"");
  EXPECT_EQ(CellContentName(kWaterCell), u"Agua");
}

TEST(CellCode, OfAnythingElseIsNobodysPiece) {
  for (int number = -32768; number <= 32767; ++number) {
    if ((number >= 1 && number <= 13) || (number >= 101 && number <= 113)) continue;
    const auto code = static_cast<CellCode>(number);
    ASSERT_EQ(PieceOf(code), std::nullopt) << code;
    ASSERT_FALSE(IsPieceOf(Player::Server, code) || IsPieceOf(Player::Client, code)) << code;
  }
}

}  // namespace
}  // namespace brontavia::test
