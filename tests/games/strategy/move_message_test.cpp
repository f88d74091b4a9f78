#include "games/strategy/move_message.h"

#include <gtest/gtest.h>

#include "tests/games/strategy/strategy_cells.h"

namespace brontavia::test {
namespace {

TEST(StrategyMoveText, HasTwoDigitsAndACommaForEachField) {
  EXPECT_EQ(StrategyMoveText({.From = Cell("C4"), .To = Cell("C5"), .Result = CombatResult::AttackerWins}),
            u"03,04,03,05,01,");
  EXPECT_EQ(StrategyMoveText({.From = Cell("E4"), .To = Cell("E5"), .Result = CombatResult::AttackerDestroyed}),
            u"05,04,05,05,00,");
  EXPECT_EQ(StrategyMoveText({.From = Cell("J10"), .To = Cell("A10"), .Result = CombatResult::BothDestroyed}),
            u"10,10,01,10,02,");
}

TEST(StrategyMoveText, OfEveryMoveIsReadBack) {
  for (const Coordinate from : AllCells(kEstratega)) {
    for (const Coordinate to : AllCells(kEstratega)) {
      for (const CombatResult result :
           {CombatResult::AttackerDestroyed, CombatResult::AttackerWins, CombatResult::BothDestroyed}) {
        const StrategyMove move{.From = from, .To = to, .Result = result};
        ASSERT_EQ(ReadStrategyMove(StrategyMoveText(move)), move);
      }
    }
  }
}

struct Reading {
  std::string_view What;
  std::u16string_view Payload;
  std::optional<StrategyMove> Move;
};

constexpr StrategyMove Moved(Coordinate from, Coordinate to, CombatResult result) {
  return {.From = from, .To = to, .Result = result};
}
constexpr CombatResult kLost = CombatResult::AttackerDestroyed;
constexpr CombatResult kWon = CombatResult::AttackerWins;

const Reading kReadings[] = {
    {"nothing", u"", Moved({0, 0}, {0, 0}, kLost)},
    {"one field", u"05,", Moved({5, 0}, {0, 0}, kLost)},
    {"no result", u"05,04,05,05,", Moved({5, 4}, {5, 5}, kLost)},
    {"a result that is no number", u"05,04,05,05,xx,", Moved({5, 4}, {5, 5}, kLost)},
    {"no last comma", u"05,04,05,05,01", Moved({5, 4}, {5, 5}, kWon)},
    {"text of another message behind it", u"05,04,05,05,01,Listo|", Moved({5, 4}, {5, 5}, kWon)},
    {"cells outside every board, which the board refuses", u"00,11,99,-1,01,", Moved({0, 11}, {99, -1}, kWon)},
    {"cells that are no numbers", u"xx,yy,zz,tt,01,", Moved({0, 0}, {0, 0}, kWon)},
    {"one digit and a comma, which moves the fields after it", u"5,04,05,05,01,", Moved({5, 4}, {5, 5}, kWon)},
    {"the taken flag", u"04,04,04,05,03,", std::nullopt},
    {"a negative result", u"04,04,04,05,-1,", std::nullopt},
    {"a far result", u"04,04,04,05,9e9", std::nullopt},
};

TEST(ReceivedStrategyMove, IsReadOrRefused) {
  for (const Reading& tested : kReadings) EXPECT_EQ(ReadStrategyMove(tested.Payload), tested.Move) << tested.What;
}

}  // namespace
}  // namespace brontavia::test
