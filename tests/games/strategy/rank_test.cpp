#include "games/strategy/rank.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace brontavia::test {
namespace {

struct NamedRank {
  int Rank;
  std::u16string_view Name;
  bool Moves;
};
constexpr NamedRank kNamedRanks[] = {
    {1, u"Bandera", false},   {2, u"Bomba", false},   {3, u"Espía", true},    {4, u"Explorador", true},
    {5, u"Minador", true},    {6, u"Sargento", true}, {7, u"Teniente", true}, {8, u"Capitán", true},
    {9, u"Comandante", true}, {10, u"Coronel", true}, {11, u"General", true}, {12, u"Mariscal", true},
    {13, u"Bomba", false},
};

TEST(Rank, HasItsName) {
  for (const NamedRank& tested : kNamedRanks) EXPECT_EQ(RankName(tested.Rank), tested.Name) << tested.Rank;
  EXPECT_EQ(RankName(RankOf(kEmptyLand)), u"");
  EXPECT_EQ(RankName(RankOf(kWaterCell)), u"Agua");
}

TEST(Rank, OfNoNameIsRefused) {
  for (const int rank : {-100, -2, 14, 99, 113, std::numeric_limits<int>::min()}) {
    EXPECT_THROW(RankName(rank), std::out_of_range) << rank;
  }
}

TEST(CellCode, TellsRankAndSide) {
  for (const NamedRank& tested : kNamedRanks) {
    const auto red = static_cast<CellCode>(tested.Rank);
    const auto blue = static_cast<CellCode>(100 + tested.Rank);
    SCOPED_TRACE(tested.Rank);
    EXPECT_EQ(PieceCode(Player::Server, tested.Rank), red);
    EXPECT_EQ(PieceCode(Player::Client, tested.Rank), blue);
    EXPECT_EQ(RankOf(red), tested.Rank);
    EXPECT_EQ(RankOf(blue), tested.Rank);
    EXPECT_EQ(SideOf(red), Player::Server);
    EXPECT_EQ(SideOf(blue), Player::Client);
    for (const CellCode code : {red, blue}) {
      EXPECT_TRUE(IsPiece(code));
      EXPECT_EQ(IsPieceOf(Player::Server, code), code == red);
      EXPECT_EQ(IsPieceOf(Player::Client, code), code == blue);
      EXPECT_EQ(IsMovable(code), tested.Moves);
    }
  }
}

TEST(CellCode, OfLandAndWaterIsNobodysPiece) {
  for (const CellCode code : {kEmptyLand, kWaterCell}) {
    SCOPED_TRACE(code);
    EXPECT_FALSE(IsPiece(code));
    EXPECT_FALSE(IsPieceOf(Player::Server, code));
    EXPECT_FALSE(IsPieceOf(Player::Client, code));
    EXPECT_FALSE(IsMovable(code));
  }
}

}  // namespace
}  // namespace brontavia::test
