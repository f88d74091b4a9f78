#include "games/naval/naval_painter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "games/naval/fleet.h"
#include "games/naval/hull.h"
#include "text/qt_text.h"
#include "ui/board_view.h"
#include "ui/look.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

const QColor kDeckOfSunk(0x7A, 0x1A, 0x1A);
const QColor kWordOnHit(Qt::black);

// Parts of a cell's side.
constexpr qreal kWaterSide = 0.66;
constexpr qreal kHitSide = 0.72;
constexpr qreal kMarginSide = 0.48;
constexpr qreal kRingSide = 0.88;
constexpr qreal kHitRadius = 0.07;
constexpr int kShade = 115;  // opacity of a margin's ground, of 255
constexpr qreal kAnchorRadius = 0.33;
constexpr qreal kLargestName = 0.3;
constexpr qreal kLargestInitial = 0.55;
constexpr qreal kLargestWord = 0.24;
constexpr qreal kWordWidth = 0.72;  // between the corners of the last shot
constexpr qreal kRim = 0.1;         // of the current cell
constexpr qreal kLetter = 0.6;
constexpr qreal kLargestOfFont = 1.1;  // of the user's font

// In pixels.
constexpr qreal kLineWidth = 1;
constexpr qreal kBoardEdge = 1.5;
constexpr qreal kThinnestEdge = 1.4;
constexpr qreal kEdgeOfHull = 2;  // in units of the hull
constexpr qreal kSmallestWithWave = 24;
constexpr qreal kSmallestWithWord = 64;
constexpr qreal kWordGap = 3;
constexpr qreal kLineRoom = 4;  // that a line between cells takes, to each side

// ---- Water ----

void PaintLines(QPainter& painter, const QRectF& area, CellIndex cell, const look::Colours& colours) {
  const auto edge = [&](bool of_board) { return of_board ? kBoardEdge : kLineWidth; };
  const auto colour = [&](bool of_board) { return of_board ? colours.SeaOrnament : colours.SeaLine; };
  const bool left = cell.Column == 1;
  const bool top = cell.Row == 1;
  painter.fillRect(QRectF(area.left(), area.top(), edge(left), area.height()), colour(left));
  painter.fillRect(QRectF(area.left(), area.top(), area.width(), edge(top)), colour(top));
  if (cell.Column == kSeaSide) {
    painter.fillRect(QRectF(area.right() - kBoardEdge, area.top(), kBoardEdge, area.height()), colours.SeaOrnament);
  }
  if (cell.Row == kSeaSide) {
    painter.fillRect(QRectF(area.left(), area.bottom() - kBoardEdge, area.width(), kBoardEdge), colours.SeaOrnament);
  }
}

void PaintWave(QPainter& painter, const QRectF& area, const QColor& colour) {
  const auto at = [&](qreal x, qreal y) { return area.topLeft() + QPointF(x, y) * area.width(); };
  QPainterPath wave(at(0.34, 0.56));
  wave.quadTo(at(0.42, 0.47), at(0.5, 0.56));
  wave.quadTo(at(0.58, 0.65), at(0.66, 0.56));
  painter.strokePath(wave, QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap));
}

void PaintWater(QPainter& painter, const QRectF& area, const CellLook& look, const look::Colours& colours) {
  painter.fillRect(area, colours.Sea);
  if (Unpacked(look.Drawing).Margin) {
    QColor shade = colours.SeaLine;
    shade.setAlpha(kShade);
    painter.fillRect(area, shade);
  }
  PaintLines(painter, area, look.Index, colours);
  const bool empty = look.Drawing == 0 && !look.BackColour.isValid();
  if (empty && area.width() >= kSmallestWithWave && (look.Index.Row - look.Index.Column) % 4 == 0) {
    PaintWave(painter, area, colours.SeaLine);
  }
}

void PaintHitGround(QPainter& painter, const QRectF& area) {
  const qreal radius = kHitRadius * area.width();
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::kHit);
  painter.drawRoundedRect(area.adjusted(kLineWidth, kLineWidth, 0, 0), radius, radius);
}

// ---- Signs ----

struct Sign {
  QString Picture;
  qreal Side;  // part of the cell's
  QColor Colour;
  QChar Letter;  // where the picture cannot be shown
};

std::optional<Sign> SignOf(const CellLook& look, const SeaDrawing& drawing, const look::Colours& colours) {
  if (look.BackColour == look::kHit) {
    if (drawing.Sunk) return std::nullopt;
    return Sign{.Picture = u"naval_impacto"_s, .Side = kHitSide, .Colour = {}, .Letter = u'i'};
  }
  if (look.BackColour == look::kWaterShot) {
    return Sign{.Picture = u"naval_agua"_s, .Side = kWaterSide, .Colour = {}, .Letter = u'A'};
  }
  if (drawing.Margin) {
    return Sign{.Picture = u"naval_margen"_s, .Side = kMarginSide, .Colour = colours.SeaSign, .Letter = u'A'};
  }
  if (drawing.Ring) {
    return Sign{.Picture = u"naval_anillo"_s, .Side = kRingSide, .Colour = colours.SeaSign, .Letter = u'o'};
  }
  return std::nullopt;
}

QColor InkOn(const CellLook& look, const look::Colours& colours) {
  if (look.BackColour == look::kHit) return kWordOnHit;
  return colours.Dark ? look::kWhite : look::kInk;
}

// ---- Writing ----

// Every text of a sea that is written beside a sign: they all have one size.
std::span<const QString> Words() {
  static const std::array<QString, 2> words{u"Agua"_s, u"impacto"_s};
  return words;
}

std::span<const QString> Initials() {
  static const std::array<QString, 4> initials{u"P"_s, u"A"_s, u"S"_s, u"D"_s};
  return initials;
}

qreal LargestIn(const QFont& font, qreal height) { return std::min(kLargestOfFont * look::PixelsOf(font), height); }

std::optional<QFont> FontOfName(const QFont& font, const QString& name, qreal cell, int length) {
  // The bow and the stern take more of a short hull.
  const qreal ends = length == 2 ? 0.62 : 0.5;
  return look::FittingFont(font, std::span(&name, 1), {(length - ends) * cell, cell / 2},
                           LargestIn(font, kLargestName * cell));
}

std::optional<QFont> FontOfInitials(const QFont& font, qreal cell) {
  return look::FittingFont(font, Initials(), {cell, 0.7 * cell}, LargestIn(font, kLargestInitial * cell));
}

std::optional<QFont> FontOfWords(const QFont& font, const QRectF& area) {
  if (area.height() < kSmallestWithWord) return std::nullopt;
  return look::FittingFont(font, Words(), {kWordWidth * area.width(), area.height() / 3},
                           LargestIn(font, kLargestWord * area.height()));
}

// The middle of its capitals at `centre`.
void WriteCentred(QPainter& painter, QPointF centre, const QString& text, const QFont& font, const QColor& colour) {
  const QFontMetricsF metrics(font);
  painter.setFont(font);
  painter.setPen(colour);
  painter.drawText(centre + QPointF(-metrics.horizontalAdvance(text) / 2, metrics.capHeight() / 2), text);
}

// ---- Marks ----

void PaintMarks(QPainter& painter, const QRectF& area, const CellLook& look) {
  if (look.Marks.testFlag(Mark::FirstEnd)) look::PaintFirstEnd(painter, area);
  if (look.Current) look::PaintCurrent(painter, area);
  // The current cell's rim would hide the corners: whoever has fired stands on the last shot.
  if (look.Marks.testFlag(Mark::LastMove)) look::PaintLastMove(painter, area);
}

// ---- From cell to cell ----

std::optional<CellIndex> FirstEnd(const BoardModel& sea) {
  for (int row = 1; row <= kSeaSide; ++row) {
    for (int column = 1; column <= kSeaSide; ++column) {
      if (sea.Cell({row, column}).Marks.testFlag(Mark::FirstEnd)) return CellIndex{row, column};
    }
  }
  return std::nullopt;
}

// From the rim of the first end's disc to the middle of the current cell.
std::optional<QLineF> FirstEndLine(const BoardView& board) {
  const auto start = FirstEnd(board.Model());
  const CellIndex current = board.Model().CurrentCell();
  if (!start || *start == current || (start->Row != current.Row && start->Column != current.Column))
    return std::nullopt;
  const QRectF disc = board.CellRect(*start);
  QLineF line(disc.center(), QRectF(board.CellRect(current)).center());
  line.setP1(line.pointAt(kAnchorRadius * disc.width() / line.length()));
  return line;
}

}  // namespace

void NavalPainter::Paint(QPainter& painter, const QRectF& area, const CellLook& look) const {
  if (look.Header) {
    PaintHeader(painter, area, look);
    return;
  }
  const look::Colours colours = look::ColoursOf(look.Palette);
  const SeaDrawing drawing = Unpacked(look.Drawing);
  const bool hit = look.BackColour == look::kHit;
  PaintWater(painter, area, look, colours);
  if (hit) PaintHitGround(painter, area);
  const bool ship = drawing.ShipLength > 0 && (!hit || drawing.Sunk);
  if (ship) {
    PaintMarks(painter, area, look);  // above the hull they would cut its name
    PaintShip(painter, area, drawing, colours);
  }
  PaintSign(painter, area, look, drawing, colours);
  if (!ship) PaintMarks(painter, area, look);
}

void NavalPainter::PaintShip(QPainter& painter, const QRectF& cell, const SeaDrawing& ship,
                             const look::Colours& colours) const {
  HullColours hull{.Hull = colours.Hull, .Edge = colours.HullEdge, .Deck = colours.Deck};
  if (ship.Sunk) hull = {.Hull = look::kSunk, .Edge = look::kWhite, .Deck = kDeckOfSunk};
  if (writing_ == ShipWriting::Initial) hull.Deck = QColor();
  const qreal side = cell.width();
  const qreal unit = side / kUnitsOfCell;
  const qreal before = (ship.Segment - 1) * side;
  painter.save();
  painter.setClipRect(cell, Qt::IntersectClip);
  painter.translate(cell.topLeft() - (ship.Upright ? QPointF(-side, before) : QPointF(before, 0)));
  if (ship.Upright) painter.rotate(90);
  painter.scale(unit, unit);
  PaintHull(painter, ship.ShipLength, hull, std::max(kEdgeOfHull, kThinnestEdge / unit));
  painter.scale(1 / unit, 1 / unit);
  // The bow is pointed, so the hull's middle lies before the middle of its cells.
  painter.translate(side * (ship.ShipLength / 2.0 - 0.05), side / 2);
  if (ship.Upright && writing_ == ShipWriting::Initial) painter.rotate(-90);
  PaintWriting(painter, cell, ship.ShipLength, ship.Sunk ? look::kWhite : colours.HullText);
  painter.restore();
}

void NavalPainter::PaintWriting(QPainter& painter, const QRectF& cell, int length, const QColor& colour) const {
  const QString name = ToQString(ShipName(length));
  const bool whole = writing_ == ShipWriting::Name;
  const auto font =
      whole ? FontOfName(painter.font(), name, cell.width(), length) : FontOfInitials(painter.font(), cell.width());
  if (font) WriteCentred(painter, {0, 0}, whole ? name : name.first(1), *font, colour);
}

void NavalPainter::PaintSign(QPainter& painter, const QRectF& area, const CellLook& look, const SeaDrawing& drawing,
                             const look::Colours& colours) const {
  const auto sign = SignOf(look, drawing, colours);
  if (!sign) return;
  const QFont font = painter.font();
  QRectF room = area;
  const bool words = writing_ == ShipWriting::Name && !look.Text.isEmpty();
  if (const auto word_font = words ? FontOfWords(font, area) : std::nullopt) {
    const QFontMetricsF metrics(*word_font);
    const qreal rim = kRim * area.height();
    const qreal middle = area.bottom() - rim - metrics.descent() - metrics.capHeight() / 2;
    WriteCentred(painter, {area.center().x(), middle}, look.Text, *word_font, InkOn(look, colours));
    room.adjust(0, rim, 0, 0);
    room.setBottom(middle - metrics.capHeight() / 2 - kWordGap);
  }
  const qreal side = std::min(sign->Side * area.width(), room.height());
  if (!look::PaintPicture(painter, room, sign->Picture, {side, side}, sign->Colour)) {
    QFont letter = font;
    letter.setPixelSize(std::max(1, qRound(kLetter * side)));
    WriteCentred(painter, room.center(), sign->Letter, letter, InkOn(look, colours));
  }
  painter.setFont(font);
}

void NavalPainter::PaintOver(QPainter& painter, const BoardView& board) const {
  if (const auto line = FirstEndLine(board)) look::PaintFirstEndLine(painter, line->p1(), line->p2());
  if (!board.Model().WaitsForClick()) return;
  const QRectF sea = QRectF(board.CellRect({1, 1})).united(board.CellRect({kSeaSide, kSeaSide}));
  look::PaintWaitsForClick(painter, sea, look::ColoursOf(board.palette()));
}

QRegion NavalPainter::OverArea(const BoardView& board) const {
  const auto line = FirstEndLine(board);
  if (!line) return {};
  const QRectF area = QRectF(line->p1(), line->p2()).normalized();
  return area.adjusted(-kLineRoom, -kLineRoom, kLineRoom, kLineRoom).toAlignedRect();
}

}  // namespace brontavia
