#include "ui/strip_plate.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <array>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr qreal kMargin = 8;
constexpr qreal kGap = 12;
constexpr qreal kSlotGap = 10;
constexpr qreal kTileWidth = 96;
constexpr qreal kUnnamedTile = 48;
constexpr qreal kPointHalf = 11;

qreal Advance(const QFont& font, const QString& text) { return QFontMetricsF(font).horizontalAdvance(text); }

bool HasStateSign(PlayerState state) {
  return state == PlayerState::Ready || state == PlayerState::ToMove || state == PlayerState::Won;
}

// A line of writing whose capitals stand on `baseline`.
QRectF LineAt(qreal x, qreal width, qreal baseline, const QFont& font) {
  const QFontMetricsF metrics(font);
  return {x, baseline - metrics.ascent(), width, metrics.height()};
}

// The baseline that puts capitals into the middle.
qreal MiddleBaseline(const QRectF& area, const QFont& font) {
  return area.center().y() + QFontMetricsF(font).capHeight() / 2;
}

// Lays one plate out from its left, as the own one stands.
class LayOut {
 public:
  LayOut(const ScoreboardSide& side, const QRectF& plate, const QFont& font)
      : side_(side), plate_(plate), font_(font), size_(look::PixelsOf(font)) {}

  PlateLayout Run() {
    const qreal sign = plate_.height() - 2 * kMargin;
    layout_.Sign = {plate_.left() + kMargin, plate_.top() + kMargin, sign, sign};
    if (side_.Name.isEmpty()) return layout_;
    left_ = layout_.Sign.right() + kGap;
    PlaceScore();
    layout_.NameFont = look::Scaled(font_, 1.15, true);
    layout_.WordFont = look::Scaled(font_, 0.92);
    if (side_.Clock) {
      PlaceClock();
    } else if (side_.Fought) {
      PlaceFought();
    }
    PlaceLines();
    return layout_;
  }

 private:
  void PlaceScore() {
    layout_.ScoreFont = look::Scaled(font_, 2, true);
    const qreal width = std::max(66.0, Advance(layout_.ScoreFont, QString::number(side_.Score)) + 2 * kGap);
    layout_.Score = {plate_.right() - width, plate_.top(), width, plate_.height()};
    layout_.HairLine = {layout_.Score.left(), plate_.top() + 10, 0, plate_.height() - 20};
    right_ = layout_.Score.left();
  }

  // The name in its smallest writing, which nothing may take the room of.
  [[nodiscard]] qreal SmallestName() const {
    QFont smallest = layout_.NameFont;
    smallest.setPixelSize(look::kSmallestReadable);
    smallest.setStretch(75);
    return Advance(smallest, side_.Name);
  }

  // The clock gets what name and state leave, but at least half of the room.
  void PlaceClock() {
    const QString& time = side_.Clock->Time;
    layout_.SlotFont = look::Scaled(font_, 1.4, side_.Clock->Runs);
    const qreal dial = std::max(18.0, 1.4 * size_);
    // As wide as while it runs, so that nothing moves when it does.
    const qreal full = dial + 4 * kMargin + Advance(look::Scaled(font_, 1.4, true), time);
    const qreal room = right_ - left_ - 2 * kSlotGap;
    const qreal share = std::min(std::max(room / 2, room - Lines()), room - SmallestName());
    const qreal width = std::min(full, share);
    if (width < 0) return;
    qreal text_room = full - dial - 2.5 * kMargin;
    const bool with_dial = width == full;
    if (!with_dial) {
      text_room = width - kMargin;
      const auto font = look::FittingFont(layout_.SlotFont, {&time, 1}, {text_room, plate_.height() - 20},
                                          layout_.SlotFont.pixelSize());
      if (!font) return;
      layout_.SlotFont = *font;
    }
    layout_.Slot = {right_ - kSlotGap - width, plate_.top() + 10, width, plate_.height() - 20};
    const QRectF& slot = layout_.Slot;
    if (with_dial) layout_.Dial = {slot.left() + 1.25 * kMargin, slot.center().y() - dial / 2, dial, dial};
    const qreal text_left = with_dial ? layout_.Dial.right() + kMargin / 2 : slot.left() + kMargin / 2;
    layout_.SlotText = LineAt(text_left, text_room, MiddleBaseline(slot, layout_.SlotFont), layout_.SlotFont);
    right_ = slot.left();
  }

  // The piece's name goes first when there is no room for all.
  void PlaceFought() {
    const qreal height = plate_.height() - 12;
    const QString& name = side_.Fought->Name;
    const auto font =
        look::FittingFont(font_, {&name, 1}, {kTileWidth - 6, height / 2}, std::min(1.1 * size_, 0.3 * height));
    const bool named = font && Lines() <= right_ - left_ - kTileWidth - 2 * kGap;
    const QSizeF size = named ? QSizeF(kTileWidth, height) : QSizeF(1, 1) * std::min(height, kUnnamedTile);
    layout_.Slot = QRectF({}, size);
    layout_.Slot.moveCenter({right_ - kGap - size.width() / 2, plate_.center().y() - 0.5});
    if (named) {
      layout_.SlotFont = *font;
      const qreal baseline = layout_.Slot.bottom() - 3 - QFontMetricsF(*font).descent();
      layout_.SlotText = LineAt(layout_.Slot.left() + 3, kTileWidth - 6, baseline, *font);
    }
    right_ = layout_.Slot.left();
  }

  // Of the sign that stands before the word of the second line.
  [[nodiscard]] qreal Indent() const { return HasStateSign(side_.State) ? size_ + 5 : 0; }
  [[nodiscard]] qreal SecondLine() const { return Indent() + Advance(layout_.WordFont, side_.StateWord); }
  // Width of both lines in writing of full size.
  [[nodiscard]] qreal Lines() const { return std::max(Advance(layout_.NameFont, side_.Name), SecondLine()); }

  void PlaceLines() {
    const qreal width = right_ - kMargin - left_;
    const bool two = HasStateSign(side_.State) || !side_.StateWord.isEmpty();
    const auto font =
        look::FittingFont(layout_.NameFont, {&side_.Name, 1}, {width, plate_.height()}, layout_.NameFont.pixelSize());
    if (font) {
      layout_.NameFont = *font;
      const qreal baseline = two ? plate_.top() + 0.45 * plate_.height() : MiddleBaseline(plate_, *font);
      layout_.Name = LineAt(left_, width, baseline, *font);
    }
    if (two) PlaceState(width);
  }

  void PlaceState(qreal width) {
    const qreal baseline = plate_.top() + 0.79 * plate_.height();
    const bool sign = HasStateSign(side_.State);
    if (sign) {
      const qreal middle = baseline - QFontMetricsF(layout_.WordFont).capHeight() / 2;
      layout_.StateSign = {left_, middle - size_ / 2, size_, size_};
    }
    // Beside small writing a sign tells it better alone.
    if (sign && SecondLine() > width) return;
    const auto font = look::FittingFont(layout_.WordFont, {&side_.StateWord, 1}, {width - Indent(), plate_.height()},
                                        layout_.WordFont.pixelSize());
    if (!font) return;
    layout_.WordFont = *font;
    layout_.Word = LineAt(left_ + Indent(), width - Indent(), baseline, *font);
  }

  const ScoreboardSide& side_;
  const QRectF& plate_;
  const QFont& font_;
  qreal size_;       // of the user's font in pixels
  qreal left_ = 0;   // of the free room
  qreal right_ = 0;  // of the free room
  PlateLayout layout_;
};

QRectF Mirrored(const QRectF& area, const QRectF& plate) {
  return area.isNull() ? area : area.translated(plate.left() + plate.right() - area.left() - area.right(), 0);
}

// Paints what LayOut has placed.
class PlatePainter {
 public:
  PlatePainter(QPainter& painter, const ScoreboardSide& side, const QRectF& plate, bool mirrored, const QFont& font,
               const look::Colours& colours)
      : painter_(painter),
        side_(side),
        plate_(plate),
        colours_(colours),
        layout_(LayOutPlate(side, plate, mirrored, font)),
        outside_(mirrored ? Qt::AlignRight : Qt::AlignLeft),
        lit_(side.State == PlayerState::ToMove),
        text_(lit_ ? colours.LitText : colours.Text),
        muted_(lit_ ? colours.LitText : colours.Muted) {
    painter_.setRenderHint(QPainter::Antialiasing);
  }

  void Run(bool focused) {
    PaintGround(focused);
    look::PaintPlayerSign(painter_, layout_.Sign, side_.Sign, text_);
    Write(layout_.Name, layout_.NameFont, side_.Name, text_, outside_);
    PaintStateSign();
    Write(layout_.Word, layout_.WordFont, side_.StateWord, muted_, outside_);
    if (!layout_.Slot.isNull()) {
      if (side_.Clock) {
        PaintClock(*side_.Clock);
      } else if (side_.Fought) {
        PaintFought(*side_.Fought);
      }
    }
    if (layout_.Score.isNull()) return;
    painter_.setPen(QPen(lit_ ? colours_.LitEdge : colours_.Line, 1));
    painter_.drawLine(layout_.HairLine.topLeft(), layout_.HairLine.bottomLeft());
    Write(layout_.Score, layout_.ScoreFont, QString::number(side_.Score), text_, Qt::AlignHCenter);
  }

 private:
  void Write(const QRectF& place, const QFont& font, const QString& text, const QColor& colour,
             Qt::AlignmentFlag where) {
    if (place.isNull()) return;
    painter_.setFont(font);
    painter_.setPen(colour);
    // Absolute: a plate has its sides whichever way the user's language runs.
    painter_.drawText(place, static_cast<int>(where) | Qt::AlignVCenter | Qt::AlignAbsolute | Qt::TextSingleLine, text);
  }

  void PaintGround(bool focused) {
    qreal width = 1;
    QColor edge = colours_.Line;
    if (lit_ || side_.State == PlayerState::Won) {
      width = 2;
      edge = lit_ ? colours_.LitEdge : colours_.Text;
    }
    if (focused) {
      width = look::kFocusWidth;
      edge = colours_.Focus;
    }
    const QRectF inside = plate_.adjusted(width / 2, width / 2, -width / 2, -width / 2);
    QPainterPath outline;
    outline.addRoundedRect(inside, look::kPlateRadius, look::kPlateRadius);
    if (lit_) {
      const QPointF foot(layout_.Sign.center().x(), inside.bottom());
      outline = outline.united([&] {
        QPainterPath point;
        point.addPolygon(
            QPolygonF({foot + QPointF(-kPointHalf, -1), foot + QPointF(-kPointHalf, 0), foot + QPointF(0, kPointHalf),
                       foot + QPointF(kPointHalf, 0), foot + QPointF(kPointHalf, -1)}));
        point.closeSubpath();
        return point;
      }());
    }
    painter_.setPen(QPen(edge, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(lit_ ? colours_.Lit : colours_.Base);
    painter_.drawPath(outline);
  }

  void PaintStateSign() {
    const QRectF& area = layout_.StateSign;
    if (area.isNull()) return;
    // In thirteenths of the sign.
    const auto at = [&](qreal x, qreal y) { return area.topLeft() + QPointF(x, y) * area.width() / 13; };
    painter_.setPen(Qt::NoPen);
    if (side_.State == PlayerState::ToMove) {
      painter_.setBrush(text_);
      painter_.drawPolygon(QPolygonF({at(1, 2.5), at(12, 2.5), at(6.5, 11)}));
    } else if (side_.State == PlayerState::Ready) {
      painter_.setBrush(colours_.Ready);
      painter_.drawEllipse(area);
      painter_.setPen(QPen(colours_.ReadyTick, area.width() / 7.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      painter_.drawPolyline(QPolygonF({at(3.4, 6.8), at(5.7, 9.2), at(9.7, 4.4)}));
    } else {
      look::PaintPicture(painter_, area, u"sign_copa"_s, area.size() * 15 / 13, text_);
    }
  }

  void PaintClock(const ScoreboardClock& clock) {
    const QColor& colour = clock.Runs ? colours_.Text : muted_;
    if (clock.Runs) {
      painter_.setPen(QPen(colours_.LitEdge, 2));
      painter_.setBrush(colours_.Base);
      painter_.drawRoundedRect(layout_.Slot.adjusted(1, 1, -1, -1), 6, 6);
    }
    Write(layout_.SlotText, layout_.SlotFont, clock.Time, colour, Qt::AlignHCenter);
    if (layout_.Dial.isNull()) return;
    const qreal unit = layout_.Dial.width() / 18;
    painter_.setPen(QPen(colour, 1.8 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawEllipse(layout_.Dial);
    const QPointF middle = layout_.Dial.center();
    painter_.drawPolyline(QPolygonF({middle + QPointF(0, -5.5) * unit, middle, middle + QPointF(4, 2.6) * unit}));
  }

  void PaintFought(const FoughtPiece& piece) {
    const QColor& army = side_.Sign == PlayerSign::Moon ? look::kBlueArmy : look::kRedArmy;
    const QRectF& tile = layout_.Slot;
    if (piece.Fell) painter_.setOpacity(0.7);
    QPainterPath outline;
    outline.addRoundedRect(tile.adjusted(0.75, 0.75, -0.75, -0.75), look::kTileRadius, look::kTileRadius);
    painter_.fillPath(outline.translated(0, 1.5).subtracted(outline), army);
    painter_.setPen(QPen(army, 1.5));
    painter_.setBrush(look::kTile);
    painter_.drawPath(outline);
    QRectF emblem = tile;
    if (!layout_.SlotText.isNull()) {
      const QFontMetricsF metrics(layout_.SlotFont);
      emblem.setBottom(layout_.SlotText.top() + metrics.ascent() - metrics.capHeight());
    }
    const qreal side = std::min(28.0, emblem.height() - 4);
    look::PaintPicture(painter_, emblem, piece.Emblem, {side, side}, army);
    Write(layout_.SlotText, layout_.SlotFont, piece.Name, army, Qt::AlignHCenter);
    painter_.setOpacity(1);
    if (piece.Fell) PaintFallen(tile.topRight() + QPointF(-9, 9));
  }

  void PaintFallen(QPointF middle) {
    painter_.setPen(QPen(look::kWhite, 1.5));
    painter_.setBrush(look::kInk);
    painter_.drawEllipse(middle, 9, 9);
    painter_.setPen(QPen(look::kWhite, 2.2, Qt::SolidLine, Qt::RoundCap));
    painter_.drawLine(middle + QPointF(-3.5, -3.5), middle + QPointF(3.5, 3.5));
    painter_.drawLine(middle + QPointF(3.5, -3.5), middle + QPointF(-3.5, 3.5));
  }

  QPainter& painter_;
  const ScoreboardSide& side_;
  const QRectF& plate_;
  const look::Colours& colours_;
  PlateLayout layout_;
  Qt::AlignmentFlag outside_;  // where the sign stands
  bool lit_;
  QColor text_;
  QColor muted_;
};

}  // namespace

PlateLayout LayOutPlate(const ScoreboardSide& side, const QRectF& plate, bool mirrored, const QFont& font) {
  PlateLayout layout = LayOut(side, plate, font).Run();
  if (!mirrored) return layout;
  const QPointF in_slot = layout.Slot.topLeft();
  for (QRectF* area :
       {&layout.Sign, &layout.Name, &layout.StateSign, &layout.Word, &layout.Slot, &layout.Score, &layout.HairLine}) {
    *area = Mirrored(*area, plate);
  }
  // A clock is no mirror image.
  const QPointF shift = layout.Slot.topLeft() - in_slot;
  layout.Dial.translate(shift);
  layout.SlotText.translate(shift);
  return layout;
}

void PaintPlate(QPainter& painter, const ScoreboardSide& side, const QRectF& plate, bool mirrored, const QFont& font,
                const look::Colours& colours, bool focused) {
  PlatePainter(painter, side, plate, mirrored, font, colours).Run(focused);
}

}  // namespace brontavia
