#include "games/naval/fleet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace brontavia::test {
namespace {

constexpr std::array<std::u16string_view, kShipsPerFleet> kPaddedNames{
    u"Portaaviones ", u"Acorazado    ", u"Submarino    ", u"Submarino    ",
    u"Submarino    ", u"Destructor   ", u"Destructor   "};
constexpr std::array<std::u16string_view, kShipsPerFleet> kNames{
    u"Portaaviones", u"Acorazado", u"Submarino", u"Submarino", u"Submarino", u"Destructor", u"Destructor"};
constexpr std::array<int, kShipsPerFleet> kShipLengths{5, 4, 3, 3, 3, 2, 2};

constexpr std::size_t kBlockLength = 5;
constexpr std::size_t kFleetLength = 35;

// A sound fleet: where each ship lies and the block that says so.
struct Berth {
  Coordinate Start;
  Coordinate End;
  std::u16string_view Block;
};
constexpr std::array<Berth, kShipsPerFleet> kBerths{{
    {{1, 1}, {5, 1}, u"3))-)"},    // A1 to E1
    {{1, 3}, {4, 3}, u"4)+,+"},    // A3 to D3
    {{1, 5}, {3, 5}, u"5)-+-"},    // A5 to C5
    {{5, 5}, {7, 5}, u"6--/-"},    // E5 to G5
    {{9, 5}, {9, 7}, u"71-1/"},    // I5 to I7
    {{1, 7}, {2, 7}, u"8)/*/"},    // A7 to B7
    {{10, 9}, {10, 10}, u"92122"}  // J9 to J10
}};
constexpr std::u16string_view kSoundFleet = u"3))-)4)+,+5)-+-6--/-71-1/8)/*/92122";

// kSoundFleet with `block` instead of block `index`.
std::u16string WithBlock(std::size_t index, std::u16string_view block) {
  std::u16string fleet(kSoundFleet);
  return fleet.replace(index * kBlockLength, kBlockLength, block);
}

std::size_t Index(int value) { return static_cast<std::size_t>(value); }

// ---- The sea ----

TEST(Sea, HasTenColumnsAndTenRows) {
  for (int column = -2; column <= 13; ++column) {
    for (int row = -2; row <= 13; ++row) {
      const bool inside = column > 0 && column < 11 && row > 0 && row < 11;
      EXPECT_EQ(IsOnGrid(column, row), inside) << column << ", " << row;
      EXPECT_EQ(IsOnGrid(Coordinate{.Column = column, .Row = row}), inside) << column << ", " << row;
    }
  }
}

// ---- The fleet ----

TEST(Fleet, BeginsIntactAndUnplacedOnBothSides) {
  const FleetTable fleet = NewFleetTable();
  for (int ship = 1; ship <= kShipsPerFleet; ++ship) {
    for (const int number : {ship, ship + 10}) {
      SCOPED_TRACE(testing::Message() << "entry " << number);
      const ShipRecord& record = fleet.at(Index(number));
      const int length = kShipLengths.at(Index(ship - 1));
      EXPECT_EQ(record.Number, number);
      EXPECT_EQ(record.Name, kPaddedNames.at(Index(ship - 1)));
      EXPECT_EQ(record.Name.size(), 13U);
      EXPECT_EQ(TrimmedName(record), kNames.at(Index(ship - 1)));
      EXPECT_EQ(record.Length, length);
      EXPECT_EQ(record.IntactCount, length);
      EXPECT_EQ(record.State, ShipState::Intacto);
      EXPECT_FALSE(record.Placed);
      EXPECT_EQ(record.Start, Coordinate{});
      EXPECT_EQ(record.End, Coordinate{});
      for (int segment = 1; segment <= 5; ++segment) {
        EXPECT_EQ(record.Segments.at(Index(segment - 1)), segment <= length) << "segment " << segment;
      }
    }
  }
}

TEST(Fleet, HasTwentyTwoCells) {
  const FleetTable fleet = NewFleetTable();
  const auto cells_of = [&fleet](std::size_t first) {
    return std::accumulate(fleet.begin() + static_cast<std::ptrdiff_t>(first),
                           fleet.begin() + static_cast<std::ptrdiff_t>(first) + kShipsPerFleet, 0,
                           [](int sum, const ShipRecord& ship) { return sum + ship.Length; });
  };
  EXPECT_EQ(cells_of(1), 22);
  EXPECT_EQ(cells_of(11), 22);
}

TEST(Ship, HasItsNameByItsLength) {
  for (std::size_t ship = 0; ship < kNames.size(); ++ship) EXPECT_EQ(ShipName(kShipLengths.at(ship)), kNames.at(ship));
}

TEST(Ship, CountsItsSegmentsFromItsStart) {
  const ShipRecord lying{.Start = {.Column = 4, .Row = 7}, .End = {.Column = 8, .Row = 7}};
  const ShipRecord standing{.Start = {.Column = 10, .Row = 6}, .End = {.Column = 10, .Row = 10}};
  for (int segment = 1; segment <= 5; ++segment) {
    EXPECT_EQ(lying.SegmentOn({.Column = 3 + segment, .Row = 7}), segment);
    EXPECT_EQ(standing.SegmentOn({.Column = 10, .Row = 5 + segment}), segment);
  }
}

// ---- A fleet as text ----

TEST(WireCoordinates, AreTheCharactersFromClosingParenthesisToTwo) {
  constexpr std::u16string_view kCharacters = u")*+,-./012";
  for (int coordinate = 1; coordinate <= 10; ++coordinate) {
    EXPECT_EQ(WireCoordinate(coordinate), kCharacters.at(Index(coordinate - 1))) << coordinate;
  }
}

TEST(FleetAsText, IsOneBlockForEachShipInOrder) {
  FleetTable fleet = NewFleetTable();
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    const Berth& berth = kBerths.at(Index(number - 1));
    fleet.at(Index(number)).Start = berth.Start;
    fleet.at(Index(number)).End = berth.End;
  }
  const std::u16string text = FleetText(fleet);
  ASSERT_EQ(text.size(), kFleetLength);
  for (std::size_t i = 0; i < kBerths.size(); ++i) {
    EXPECT_EQ(text.substr(i * kBlockLength, kBlockLength), kBerths.at(i).Block) << "block " << i;
  }
  EXPECT_EQ(text, kSoundFleet);
}

TEST(FleetAsText, IsNotChangedByHitsNorByTheOpponentsFleet) {
  FleetTable fleet = NewFleetTable();
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    const Berth& berth = kBerths.at(Index(number - 1));
    for (const int entry : {number, number + 10}) {
      ShipRecord& ship = fleet.at(Index(entry));
      ship.Segments = {};
      ship.IntactCount = 0;
      ship.State = ShipState::Hundido;
      ship.Start = entry == number ? berth.Start : Coordinate{.Column = 1, .Row = 1};
      ship.End = entry == number ? berth.End : Coordinate{.Column = 1, .Row = 2};
    }
  }
  EXPECT_EQ(FleetText(fleet), kSoundFleet);
}

// ---- A fleet that arrives ----

// The ships of `reading` are those of kBerths, as entries 11 to 17, intact and unplaced.
void ExpectSoundFleet(const FleetReading& reading) {
  ASSERT_FALSE(reading.BadBlock) << "block " << *reading.BadBlock;
  const FleetTable fresh = NewFleetTable();
  for (std::size_t i = 0; i < kBerths.size(); ++i) {
    SCOPED_TRACE(testing::Message() << "ship " << i + 1);
    const ShipRecord& ship = reading.Ships.at(i);
    const ShipRecord& whole = fresh.at(i + 11);
    EXPECT_EQ(ship.Start, kBerths.at(i).Start);
    EXPECT_EQ(ship.End, kBerths.at(i).End);
    EXPECT_EQ(ship.Number, whole.Number);
    EXPECT_EQ(ship.Name, whole.Name);
    EXPECT_EQ(ship.Length, whole.Length);
    EXPECT_EQ(ship.Segments, whole.Segments);
    EXPECT_EQ(ship.IntactCount, whole.IntactCount);
    EXPECT_EQ(ship.State, whole.State);
  }
}

TEST(ReceivedFleet, FillsTheOpponentsShips) { ExpectSoundFleet(ReadFleet(kSoundFleet)); }

TEST(ReceivedFleet, MayBringItsBlocksInAnyOrder) {
  std::vector<std::size_t> order(kBerths.size());
  std::iota(order.begin(), order.end(), 0U);
  do {
    std::u16string fleet;
    for (const std::size_t i : order) fleet += kBerths.at(i).Block;
    ExpectSoundFleet(ReadFleet(fleet));
    ASSERT_FALSE(HasFailure()) << std::string(fleet.begin(), fleet.end());
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(ReceivedFleet, IsReadWithoutWhatFollowsIt) {
  for (const std::u16string_view more : {u"L", u"Listo|", u"3))-)", u"Datos|3))-)", u"\u00ff\u0001"}) {
    ExpectSoundFleet(ReadFleet(std::u16string(kSoundFleet).append(more)));
  }
  ExpectSoundFleet(ReadFleet(std::u16string(kSoundFleet).append(100'000, u'x')));
}

TEST(ReceivedFleet, IsMalformedAtEveryLengthUnderThirtyFive) {
  for (std::size_t length = 0; length < kFleetLength; ++length) {
    const FleetReading reading = ReadFleet(kSoundFleet.substr(0, length));
    ASSERT_TRUE(reading.BadBlock) << "length " << length;
    EXPECT_EQ(*reading.BadBlock, static_cast<int>(length / kBlockLength)) << "length " << length;
  }
}

TEST(ReceivedFleet, IsMalformedWithEveryOtherShipCharacter) {
  for (std::size_t block = 0; block < kBerths.size(); ++block) {
    for (int code = 0; code <= 0xFFFF; ++code) {
      if (code == '3' + static_cast<int>(block)) continue;
      std::u16string fleet(kSoundFleet);
      fleet.at(block * kBlockLength) = static_cast<char16_t>(code);
      const FleetReading reading = ReadFleet(fleet);
      ASSERT_TRUE(reading.BadBlock) << "block " << block << ", code " << code;
      // Another ship's character may pass here and be the second of its kind later.
      if (code < '3' || code > '9') {
        ASSERT_EQ(*reading.BadBlock, static_cast<int>(block)) << "code " << code;
      }
    }
  }
}

TEST(ReceivedFleet, IsMalformedWithAnyCoordinateOutsideTheSea) {
  for (std::size_t block = 0; block < kBerths.size(); ++block) {
    for (std::size_t position = 1; position < kBlockLength; ++position) {
      for (const int code : {0, 1, 39, 40, 51, 52, 65, 73, 104, 255, 256 + 41, 0x7FFF, 0x8000, 0xFFFF}) {
        std::u16string fleet(kSoundFleet);
        fleet.at((block * kBlockLength) + position) = static_cast<char16_t>(code);
        const FleetReading reading = ReadFleet(fleet);
        SCOPED_TRACE(testing::Message() << "block " << block << ", position " << position << ", code " << code);
        ASSERT_TRUE(reading.BadBlock);
        EXPECT_EQ(*reading.BadBlock, static_cast<int>(block));
        EXPECT_FALSE(IsOnGrid(reading.BadCell)) << "the cell that is told is not the one at fault";
        const int told = position % 2 == 1 ? reading.BadCell.Column : reading.BadCell.Row;
        EXPECT_EQ(told, code - 40);
      }
    }
  }
}

TEST(ReceivedFleet, IsMalformedWithAnyOneCoordinateChanged) {
  // Every change of a single coordinate makes a ship longer, shorter, diagonal or turns it round.
  for (std::size_t at = 0; at < kFleetLength; ++at) {
    if (at % kBlockLength == 0) continue;
    for (int coordinate = 1; coordinate <= kSeaSide; ++coordinate) {
      std::u16string fleet(kSoundFleet);
      fleet.at(at) = WireCoordinate(coordinate);
      if (fleet == kSoundFleet) continue;
      const FleetReading reading = ReadFleet(fleet);
      ASSERT_TRUE(reading.BadBlock) << "position " << at << ", coordinate " << coordinate;
      EXPECT_EQ(*reading.BadBlock, static_cast<int>(at / kBlockLength));
    }
  }
}

struct Malformed {
  const char* Name;
  std::size_t Block;            // where the block stands instead of the sound one
  std::u16string_view Text;     // the block
  std::optional<int> BadBlock;  // when it is told at another one
  Coordinate BadCell = {.Column = 0, .Row = 0};
};

void PrintTo(const Malformed& fleet, std::ostream* out) { *out << fleet.Name; }

class MalformedFleet : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedFleet, IsToldWithItsBlockAndCell) {
  const FleetReading reading = ReadFleet(WithBlock(GetParam().Block, GetParam().Text));
  ASSERT_TRUE(reading.BadBlock);
  EXPECT_EQ(*reading.BadBlock, GetParam().BadBlock.value_or(static_cast<int>(GetParam().Block)));
  EXPECT_EQ(reading.BadCell.Column, GetParam().BadCell.Column);
  EXPECT_EQ(reading.BadCell.Row, GetParam().BadCell.Row);
}

constexpr Malformed kMalformed[] = {
    {"ShipBelowTheFirst", 0, u"2))-)", {}, {}},
    {"ShipAboveTheLast", 6, u":2122", {}, {}},
    {"ShipOnceMoreSomewhereElse", 4, u"61-1/", {}, {}},
    {"ShipOnceMoreAtTheSamePlace", 1, u"3))-)", {}, {}},
    {"NeighbourOfTheSameLengthLeftOut", 2, u"6)-+-", 3, {}},  // ship 6's block is then the second of its kind
    {"StartColumnZero", 0, u"3()-)", {}, {0, 1}},
    {"StartRowZero", 0, u"3)(-)", {}, {1, 0}},
    {"EndColumnEleven", 6, u"92132", {}, {11, 10}},
    {"EndRowEleven", 6, u"92123", {}, {10, 11}},
    {"BothEndsOutsideButOfTheRightLength", 0, u"36)6-", {}, {14, 1}},
    {"StartLeftOfTheSeaAndOfTheRightLength", 0, u"3(),)", {}, {0, 1}},
    {"EndRightOfTheSeaAndOfTheRightLength", 0, u"3/)3)", {}, {11, 1}},
    {"EndBelowTheSeaAndOfTheRightLength", 6, u"92223", {}, {10, 11}},
    {"NeverPlaced", 0, u"3((((", {}, {0, 0}},
    {"Diagonal", 6, u"91122", {}, {10, 10}},
    {"DiagonalOfTheRightLength", 0, u"3))++", {}, {3, 3}},  // A1 to C3: five steps, but no line
    {"OneTooLong", 5, u"8)/+/", {}, {3, 7}},
    {"OneTooShort", 0, u"3)),)", {}, {4, 1}},
    {"SingleCell", 6, u"92222", {}, {10, 10}},
    {"WholeRow", 0, u"3))2)", {}, {10, 1}},
    {"EndLeftOfStart", 0, u"3-)))", {}, {1, 1}},
    {"EndAboveStart", 4, u"71/1-", {}, {9, 5}},
    {"OnAnotherShip", 3, u"6)-+-", {}, {3, 5}},
    {"AcrossAnotherShip", 2, u"5***,", {}, {2, 4}},  // B2 to B4
    {"UnderALaterShip", 0, u"3)+-+", 1, {4, 3}},
    {"LastCellOnAnotherShip", 5, u"8,---", {}, {5, 5}},
    {"FirstCellOnAnotherShip", 6, u"9/-0-", {}, {8, 5}},
    {"StandingOnTheCarriersEnd", 1, u"4-)-,", {}, {5, 4}},  // E1 to E4
};
INSTANTIATE_TEST_SUITE_P(With, MalformedFleet, testing::ValuesIn(kMalformed),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(ReceivedFleet, MayHaveShipsThatTouch) {
  // A1 to E1, A2 to D2, A3 to C3, A4 to C4, A5 to C5, D3 to E3, D4 to D5.
  EXPECT_FALSE(ReadFleet(u"3))-)4)*,*5)+++6),+,7)-+-8,+-+9,,,-").BadBlock);
}

TEST(ReceivedFleet, MayLieAlongEveryBorder) {
  // A1 to A5, J1 to J4, C1 to E1, G1 to I1, C10 to E10, A9 to A10, I10 to J10.
  const FleetReading reading = ReadFleet(u"3)))-42)2,5+)-)6/)1)7+2-28)1)291222");
  ASSERT_FALSE(reading.BadBlock);
  EXPECT_EQ(reading.Ships.at(6).Start, (Coordinate{.Column = 9, .Row = 10}));
  EXPECT_EQ(reading.Ships.at(6).End, (Coordinate{.Column = 10, .Row = 10}));
}

// ---- A shot as text ----

TEST(ShotAsText, IsColumnRowAndResult) {
  EXPECT_EQ(ShotText({.Cell = {.Column = 3, .Row = 7}, .Water = true}), u"+/A");
  EXPECT_EQ(ShotText({.Cell = {.Column = 3, .Row = 7}, .Water = false}), u"+/I");
  EXPECT_EQ(ShotText({.Cell = {.Column = 1, .Row = 10}, .Water = true}), u")2A");
  EXPECT_EQ(ShotText({.Cell = {.Column = 10, .Row = 1}, .Water = false}), u"2)I");
}

TEST(ShotAsText, IsReadBackForEveryCellAndResult) {
  for (int column = 1; column <= kSeaSide; ++column) {
    for (int row = 1; row <= kSeaSide; ++row) {
      for (const bool water : {false, true}) {
        const auto read = ReadShot(ShotText({.Cell = {.Column = column, .Row = row}, .Water = water}));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->Cell, (Coordinate{.Column = column, .Row = row}));
        EXPECT_EQ(read->Water, water);
      }
    }
  }
}

struct ShotReading {
  const char* Name;
  std::u16string_view Text;
  bool Readable;
  bool Water = false;
};

void PrintTo(const ShotReading& reading, std::ostream* out) { *out << reading.Name; }

class ShotOfAnyText : public testing::TestWithParam<ShotReading> {};

TEST_P(ShotOfAnyText, IsReadOrRefused) {
  const auto read = ReadShot(GetParam().Text);
  ASSERT_EQ(read.has_value(), GetParam().Readable);
  if (!read) return;
  EXPECT_EQ(read->Cell, (Coordinate{.Column = 3, .Row = 7}));
  EXPECT_EQ(read->Water, GetParam().Water);
}

constexpr ShotReading kShotReadings[] = {
    {"Water", u"+/A", true, true},
    {"Hit", u"+/I", true},
    {"SmallLetterIsAHit", u"+/a", true},
    {"OtherLetterIsAHit", u"+/H", true},
    {"BlankIsAHit", u"+/ ", true},
    {"BarIsAHit", u"+/|", true},
    {"NoResultIsAHit", u"+/", true},
    {"LastCharacterDecidesForWater", u"+/IA", true, true},
    {"LastCharacterDecidesForAHit", u"+/AI", true},
    {"FollowedByAnotherMessage", u"+/AHaganado|", true},
    {"FarTooLong", u"+/IIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIA", true, true},
    {"Empty", u"", false},
    {"ColumnAlone", u"+", false},
    {"ResultAlone", u"A", false},
    {"ColumnZero", u"(/I", false},
    {"ColumnEleven", u"3/I", false},
    {"ColumnFarBelow", u"\u0001/I", false},
    {"ColumnFarAbove", u"\uffff/I", false},
    {"ColumnALetter", u"C/I", false},
    {"RowZero", u"+(I", false},
    {"RowEleven", u"+3A", false},
    {"RowFarBelow", u"+\u0001A", false},
    {"RowFarAbove", u"+\uffffI", false},
    {"RowIsTheResult", u"+A", false},
    {"BothOutside", u"((A", false},
    {"ShiftedByABlank", u" +/A", false},
};
INSTANTIATE_TEST_SUITE_P(Text, ShotOfAnyText, testing::ValuesIn(kShotReadings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(ReceivedShot, IsRefusedForEveryCharacterOutsideTheSea) {
  for (int code = 0; code <= 0xFFFF; ++code) {
    const bool inside = code >= 41 && code <= 50;
    const auto character = static_cast<char16_t>(code);
    ASSERT_EQ(ReadShot(std::u16string{character, u')', u'A'}).has_value(), inside) << "code " << code;
    ASSERT_EQ(ReadShot(std::u16string{u')', character, u'A'}).has_value(), inside) << "code " << code;
  }
}

}  // namespace
}  // namespace brontavia::test
