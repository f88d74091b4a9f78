// What is read from texts that a peer, a file or a person wrote.
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "app/configuration.h"
#include "fuzz/chess_checks.h"
#include "fuzz/require.h"
#include "fuzz/targets.h"
#include "games/chess/position_line.h"
#include "games/chess/standard_fen.h"
#include "games/naval/fleet.h"
#include "games/strategy/army.h"
#include "games/strategy/move_message.h"
#include "net/random_draw.h"
#include "text/qt_text.h"
#include "text/rounding.h"
#include "text/wire_encoding.h"

namespace brontavia::fuzz {
namespace {

QByteArrayView BytesOf(std::string_view bytes) { return {bytes.data(), static_cast<qsizetype>(bytes.size())}; }

// As it is read from the wire and from files.
QString TextOf(std::string_view bytes) { return FromWire(BytesOf(bytes)); }

void CheckRounding(double value) {
  const auto wide = RoundHalfEven<std::int32_t>(value);
  const auto narrow = RoundHalfEven<std::int16_t>(value);
  using Wide = std::numeric_limits<std::int32_t>;
  if (value > Wide::min() && value < Wide::max()) {
    Require(std::abs(wide - value) <= 0.5, "the nearest integer");
  }
  const auto cut = std::clamp<std::int32_t>(wide, std::numeric_limits<std::int16_t>::min(),
                                            std::numeric_limits<std::int16_t>::max());
  Require(narrow == cut, "what is beyond the range is the nearest bound");
}

// What is written of a position is read as the same one, but for the counters, of which one digit is read, and the en
// passant square, whose column is read from another start.
void CheckWritten(const ChessPosition& position) {
  const auto again = ReadPosition(PositionLine(position), position);
  Require(again.has_value(), "what is written can be read");
  Require(again->Board == position.Board && again->SideToMove == position.SideToMove &&
              again->Castling == position.Castling,
          "what is written is read as the same");
}

void CheckArmy(const StrategyVariant& variant, std::u16string_view data, Player side) {
  StrategyBoard board(variant);
  Army own(board);
  own.Reset(OpponentOf(side));
  RandomDraw draw(1);
  own.DeployAtRandom([&draw](int count) { return draw.Below(count); });
  const std::u16string before = board.ArmyText();
  board.TakeArmy(data, side);
  for (Coordinate cell{.Column = 1, .Row = 1}; cell.Row <= variant.Rows; ++cell.Row) {
    for (cell.Column = 1; cell.Column <= variant.Columns; ++cell.Column) {
      if (cell.Row <= variant.ZoneRows) continue;
      const CellCode code = board.At(cell);
      const auto piece = PieceOf(code);
      Require(code == kWaterCell || code == kEmptyLand || (piece && piece->Side == side), "the army of the other side");
      Require(!piece || (cell.Row >= variant.EnemyZoneRow() && piece->Rank != Rank::RevealedBomb), "in its zone");
    }
  }
  Require(board.ArmyText() == before, "the own army stays as it is");
  const StrategyBoard once = board;
  board.TakeArmy(data, side);
  for (int column = 1; column <= variant.Columns; ++column) {
    for (int row = 1; row <= variant.Rows; ++row) {
      Require(board.At({column, row}) == once.At({column, row}), "an army that comes twice is the same");
    }
  }
}

}  // namespace

void FuzzPositionLine(std::string_view bytes) {
  const QString text = TextOf(bytes);
  const auto position = ReadPosition(Characters(text), StartPosition());
  if (!position) return;
  CheckPosition(*position);
  CheckWritten(*position);
}

void FuzzStandardFen(std::string_view bytes) {
  const QString text = TextOf(bytes);
  const auto position = ReadStandardFen(Characters(text));
  if (!position) return;
  CheckPosition(*position);
  CheckWritten(*position);
  Require(position->KingSquares == FindKings(position->Board), "the kings are where the board has them");
  for (const Colour colour : kBothColours) {
    const auto& passed = position->EnPassantSquares[colour];
    Require(!passed || (ChessBoard::IsOnBoard(*passed) && colour == position->SideToMove),
            "only who moves may capture");
  }
}

void FuzzLeadingNumber(std::string_view bytes) {
  Require(ToWire(TextOf(bytes)) == BytesOf(bytes), "every byte is a character and comes back as itself");
  QString text = TextOf(bytes);
  const double value = Val(text);
  Require(!std::isnan(value), "a number");
  CheckRounding(value);
  Require(Val(QString(text + u'!')) == value, "what cannot continue a number ends it");
  Require(TrimBlanks(text).size() <= text.size() && FixedWidth(text, 15).size() == 15, "texts keep their widths");
  Require(!ForScreen(text).contains(QChar(u'\0')), "nothing is hidden from screen readers");
  text.removeIf([](QChar c) { return c == u' ' || c == u'\t' || c == u'\n'; });
  Require(Val(text) == value, "blanks are skipped wherever they stand");
}

void FuzzFleet(std::string_view bytes) {
  const QString text = TextOf(bytes);
  const FleetReading reading = ReadFleet(Characters(text));
  if (const auto shot = ReadShot(Characters(text))) {
    Require(IsOnGrid(shot->Cell), "a shot is at the sea");
    const auto again = ReadShot(ShotText(*shot));
    Require(again && again->Cell == shot->Cell && again->Water == shot->Water, "a shot travels");
  }
  if (reading.BadBlock) {
    Require(*reading.BadBlock >= 0 && *reading.BadBlock < kShipsPerFleet, "one of the blocks is malformed");
    return;
  }
  FleetTable fleet = NewFleetTable();
  for (std::size_t ship = 0; ship < reading.Ships.size(); ++ship) {
    const ShipRecord& read = reading.Ships.at(ship);
    Require(IsOnGrid(read.Start) && IsOnGrid(read.End), "a ship is on the sea");
    Require(read.SegmentOn(read.End) == fleet.at(ship + 1).Length, "a ship has its length");
    fleet.at(ship + 1).Start = read.Start;
    fleet.at(ship + 1).End = read.End;
  }
  const FleetReading again = ReadFleet(FleetText(fleet));
  Require(!again.BadBlock, "a fleet travels");
  for (std::size_t ship = 0; ship < reading.Ships.size(); ++ship) {
    Require(again.Ships.at(ship).Start == reading.Ships.at(ship).Start &&
                again.Ships.at(ship).End == reading.Ships.at(ship).End,
            "a fleet arrives as it was");
  }
}

void FuzzArmy(std::string_view bytes) {
  const QString text = TextOf(bytes);
  for (const StrategyVariant* variant : {&kMiniEstratega, &kEstratega}) {
    for (const Player side : kBothPlayers) CheckArmy(*variant, Characters(text), side);
  }
  const auto move = ReadStrategyMove(Characters(text));
  if (!move) return;
  const int result = static_cast<int>(move->Result);
  Require(result >= 0 && result <= 2, "a result that travels");
  for (const int place : {move->From.Column, move->From.Row, move->To.Column, move->To.Row}) {
    if (place < 0 || place > 99) return;  // two digits travel
  }
  Require(ReadStrategyMove(StrategyMoveText(*move)) == move, "a move travels");
}

void FuzzConfiguration(std::string_view bytes) {
  static const QTemporaryDir directory;
  const auto port_of = [](const QByteArray& content) {
    QFile file(directory.filePath(QStringLiteral("Brontavia.ini")));
    Require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "the file is written");
    file.close();
    return ReadConnectionPort(directory.path());
  };
  const QByteArray content = BytesOf(bytes).toByteArray();
  const auto port = port_of(content);
  const auto end = bytes.find_first_of("\r\n");
  if (end != std::string_view::npos) {
    Require(port_of(content.left(static_cast<qsizetype>(end))) == port, "the first line alone counts");
  }
}

}  // namespace brontavia::fuzz
