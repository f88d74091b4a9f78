#include "games/strategy/strategy_painter.h"

#include <QPainterPath>
#include <algorithm>
#include <array>
#include <utility>

#include "games/strategy/strategy_drawing.h"
#include "text/qt_text.h"
#include "ui/board_view.h"
#include "ui/look.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// More than a board shows of different cells, in the four sizes that cells have at scales like 1.25.
constexpr int kKeptPictures = 160;

constexpr QColor kBoardEdge{0x9A, 0x8F, 0x73};
constexpr qreal kRim = 1.5;     // of a tile, and its lower edge
constexpr qreal kCorner = 0.2;  // of the last move: so small that names and numbers stay clear of it
constexpr qreal kLargestCorner = 13;
constexpr qreal kFight = 0.92;  // of the height of the cell

const QColor& ColourOf(Player army) { return army == Player::Server ? look::kRedArmy : look::kBlueArmy; }

// Where things stand in a cell. Their sizes follow the size that all cells of the board share.
class Places {
 public:
  Places(const QRectF& cell, const QSizeF& cell_size, const QFont& font)
      : cell_(cell), height_(cell_size.height()), names_(NameFont(cell_size, font)) {}

  [[nodiscard]] QRectF Tile() const { return Inside(cell_, height_ < 46 ? 2 : 3); }
  // The font in which the names of all ranks fit; nothing where the longest does not.
  [[nodiscard]] const std::optional<QFont>& Names() const { return names_; }
  // Descenders stay clear of the rim of the current cell.
  [[nodiscard]] qreal Baseline() const {
    return cell_.bottom() - CursorRim(height_) - QFontMetricsF(*names_).descent();
  }
  // Of an emblem above a name, or alone.
  [[nodiscard]] QRectF Emblem(bool named) const {
    QRectF room = Tile();
    if (named) room.setBottom(Baseline() - QFontMetricsF(*names_).capHeight());
    return Square(room.center(), std::min(EmblemSide(), room.height()));
  }
  [[nodiscard]] QRectF Crest() const {
    return Square(Tile().center(), std::min(0.6 * height_, std::max(30.0, 0.47 * height_)));
  }
  [[nodiscard]] bool HasNumber() const { return height_ >= 50; }
  [[nodiscard]] QFont NumberFont(QFont font) const {
    font.setPixelSize(std::max(look::kSmallestReadable, static_cast<int>(0.17 * height_)));
    return font;
  }

  [[nodiscard]] static QRectF Inside(const QRectF& area, qreal inset) {
    return area.adjusted(inset, inset, -inset, -inset);
  }

 private:
  [[nodiscard]] static QRectF Square(QPointF centre, qreal side) {
    return {centre.x() - side / 2, centre.y() - side / 2, side, side};
  }
  [[nodiscard]] static qreal CursorRim(qreal height) { return std::max(4.0, 0.09 * height); }
  [[nodiscard]] qreal EmblemSide() const {
    if (height_ < 46) return 18;
    return height_ < 56 ? 24 : std::max(28.0, 0.44 * height_);
  }
  [[nodiscard]] static std::optional<QFont> NameFont(const QSizeF& cell, const QFont& font) {
    static const auto names = [] {
      std::array<QString, kArmyRanks.size()> all;
      std::ranges::transform(kArmyRanks, all.begin(), [](Rank rank) { return ToQString(RankName(rank)); });
      return all;
    }();
    const QSizeF room(cell.width() - 2 * CursorRim(cell.height()) - 1, cell.height() / 2);
    return look::FittingFont(font, names, room, std::min(1.1 * look::PixelsOf(font), 0.3 * cell.height()));
  }

  QRectF cell_;
  qreal height_;
  std::optional<QFont> names_;
};

// Paints a cell without the marks that come and go.
class GroundPainter {
 public:
  GroundPainter(QPainter& painter, const QRectF& cell, const CellLook& look)
      : painter_(painter), cell_(cell), look_(look), font_(painter.font()), places_(cell, look.CellSize, font_) {
    painter_.setRenderHint(QPainter::Antialiasing);
  }

  void Run() {
    if (look_.Drawing == drawing::kLake) {
      PaintLake();
      return;
    }
    PaintLand();
    const auto army = drawing::ArmyOf(look_.Drawing);
    if (!army) return;
    const QColor& colour = ColourOf(*army);
    if (drawing::IsBack(look_.Drawing)) {
      PaintBack(*army);
    } else if (const auto rank = drawing::RankOf(look_.Drawing)) {
      PaintFace(*rank, colour);
    } else {
      look::PaintToFill(painter_, Places::Inside(places_.Tile(), 3), colour);
      // The name of a piece that has been taken back.
      PaintNameAlone(colour);
    }
  }

 private:
  void PaintLand() {
    painter_.fillRect(cell_, look::kLand);
    painter_.fillRect(QRectF(cell_.right() - 1, cell_.top(), 1, cell_.height()), look::kLandLine);
    painter_.fillRect(QRectF(cell_.left(), cell_.bottom() - 1, cell_.width(), 1), look::kLandLine);
  }

  void PaintLake() {
    painter_.fillRect(cell_, look::kLake);
    // In pixels of a cell 50 high.
    const qreal unit = cell_.height() / 50;
    const auto at = [&](qreal x, qreal y) { return cell_.center() + QPointF(x, y) * unit; };
    QPainterPath waves;
    for (const qreal y : {-4.0, 6.0}) {
      waves.moveTo(at(-16, y));
      for (int arch = 0; arch < 3; ++arch) {
        const qreal left = -16 + arch * 32.0 / 3;
        waves.quadTo(at(left + 16.0 / 3, arch % 2 == 0 ? y - 6 : y + 6), at(left + 32.0 / 3, y));
      }
    }
    painter_.strokePath(waves, QPen(look::kLakeWave, 2 * unit, Qt::SolidLine, Qt::RoundCap));
  }

  // The lower edge shows that the tile lies on the land.
  void PaintTile(const QPen& rim, const QBrush& ground, QColor edge) {
    const QRectF tile = places_.Tile();
    edge.setAlphaF(0.35F);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(edge);
    painter_.drawRoundedRect(tile.translated(0, kRim), look::kTileRadius, look::kTileRadius);
    painter_.setPen(rim);
    painter_.setBrush(ground);
    const qreal half = rim.style() == Qt::NoPen ? 0 : kRim / 2;
    painter_.drawRoundedRect(Places::Inside(tile, half), look::kTileRadius, look::kTileRadius);
  }

  void PaintFace(Rank rank, const QColor& colour) {
    QPen rim(colour, kRim);
    if (rank == Rank::RevealedBomb) rim.setDashPattern({5 / kRim, 3 / kRim});
    PaintTile(rim, look::kTile, colour);
    if (look_.Marks.testFlag(Mark::Selected)) look::PaintSelected(painter_, places_.Tile(), look::kTileRadius);
    const bool named = places_.Names().has_value();
    const QRectF emblem = places_.Emblem(named);
    const bool shown = look::PaintPicture(painter_, emblem, ToQString(RankEmblem(rank)), emblem.size(), colour);
    if (named) {
      Write(*places_.Names(), colour, look_.Text, places_.Baseline());
    } else if (!shown) {
      PaintNameAlone(colour);
    }
    if (places_.HasNumber()) PaintNumber(rank, colour);
  }

  // In the middle of the cell; smaller than can be read with ease rather than cut.
  void PaintNameAlone(const QColor& colour) {
    QFont font = places_.Names().value_or(font_);
    if (!places_.Names()) {
      const qreal room = places_.Tile().width() - 2 * kRim;
      for (int pixels = look::kSmallestReadable; pixels > 1; --pixels) {
        font.setPixelSize(pixels);
        if (QFontMetricsF(font).horizontalAdvance(look_.Text) <= room) break;
      }
    }
    Write(font, colour, look_.Text, places_.Tile().center().y() + QFontMetricsF(font).capHeight() / 2);
  }

  void PaintNumber(Rank rank, QColor colour) {
    const int number = NumberOf(rank == Rank::RevealedBomb ? Rank::Bomb : rank);
    const QFont font = places_.NumberFont(font_);
    colour.setAlphaF(0.85F);
    painter_.setFont(font);
    painter_.setPen(colour);
    const QPointF inset(std::max(5.0, 0.08 * cell_.height()), std::max(4.0, 0.07 * cell_.height()));
    painter_.drawText(places_.Tile().topLeft() + inset + QPointF(0, QFontMetricsF(font).capHeight()),
                      QString::number(number));
  }

  void PaintBack(Player army) {
    PaintTile(Qt::NoPen, ColourOf(army), ColourOf(army));
    QColor line = look::kIvory;
    line.setAlphaF(0.45F);
    painter_.setPen(QPen(line, 1));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRoundedRect(Places::Inside(places_.Tile(), 3.5), 3, 3);
    const QRectF crest = places_.Crest();
    const QString name = army == Player::Server ? u"crest_sol"_s : u"crest_luna"_s;
    if (look::PaintPicture(painter_, crest, name, crest.size(), look::kIvory)) return;
    QFont font = font_;
    font.setPixelSize(std::max(look::kSmallestReadable, static_cast<int>(crest.height())));
    // The star hangs at the top of its line.
    Write(font, look::kIvory, look_.Text, crest.center().y() + 0.7 * QFontMetricsF(font).capHeight());
  }

  // In the middle of the cell's width.
  void Write(const QFont& font, const QColor& colour, const QString& text, qreal baseline) {
    painter_.setFont(font);
    painter_.setPen(colour);
    painter_.drawText(QPointF(cell_.center().x() - QFontMetricsF(font).horizontalAdvance(text) / 2, baseline), text);
  }

  QPainter& painter_;
  const QRectF& cell_;
  const CellLook& look_;
  QFont font_;  // the user's
  Places places_;
};

QRectF CellsOf(const BoardView& board) {
  const BoardModel& model = board.Model();
  const int first = model.Shape().HeaderCells;
  return board.CellRect({first, first}) | board.CellRect({model.rowCount() - 1, model.columnCount() - 1});
}

}  // namespace

StrategyPainter::StrategyPainter() : pictures_(kKeptPictures) {}

void StrategyPainter::Paint(QPainter& painter, const QRectF& area, const CellLook& look) const {
  if (look.Header) {
    PaintHeader(painter, area, look);
    return;
  }
  PaintGround(painter, area, look);
  if (look.Current) look::PaintCurrent(painter, area);
  // Over the rim of the current cell, which would hide such small corners.
  if (look.Marks.testFlag(Mark::LastMove)) {
    look::PaintLastMove(painter, area, std::min(kLargestCorner, kCorner * area.height()));
  }
  if (look.Marks.testFlag(Mark::Fight)) {
    // Of a disc in the whole cell the lowest part would lie on the name.
    look::PaintFight(painter, {area.topLeft(), QSizeF(area.width(), kFight * area.height())});
  }
}

void StrategyPainter::PaintGround(QPainter& painter, const QRectF& area, const CellLook& look) const {
  if (font_ != painter.font() || cell_size_ != look.CellSize) {
    pictures_.clear();
    font_ = painter.font();
    cell_size_ = look.CellSize;
  }
  const QTransform to_device = painter.deviceTransform();
  const QRectF place = to_device.mapRect(area);
  const QRect device(place.topLeft().toPoint(), place.bottomRight().toPoint() - QPoint(1, 1));
  const Picture wanted{.Text = look.Text,
                       .Drawing = look.Drawing,
                       .Selected = look.Marks.testFlag(Mark::Selected),
                       .Size = device.size()};
  const QPixmap* picture = pictures_.object(wanted);
  if (picture == nullptr) {
    auto* painted = new QPixmap(device.size());
    painted->fill(look::kLand);
    QPainter on_picture(painted);
    on_picture.setFont(font_);
    on_picture.scale(device.width() / area.width(), device.height() / area.height());
    const QRectF cell({}, area.size());
    GroundPainter(on_picture, cell, look).Run();
    pictures_.insert(wanted, painted);
    picture = painted;
  }
  // Pixel by pixel and without a seam, at scales like 1.25 too, where cells begin between two.
  painter.save();
  painter.setWorldTransform(to_device.inverted(), true);
  painter.drawPixmap(device.topLeft(), *picture);
  painter.restore();
}

void StrategyPainter::PaintOver(QPainter& painter, const BoardView& board) const {
  const QRectF cells = CellsOf(board);
  painter.setPen(QPen(kBoardEdge, 1.5, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(cells);
  if (board.Model().WaitsForClick()) look::PaintWaitsForClick(painter, cells, look::ColoursOnLight());
}

}  // namespace brontavia
