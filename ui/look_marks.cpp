#include <QPainterPath>
#include <algorithm>
#include <utility>

#include "ui/look.h"

namespace brontavia::look {
namespace {

using namespace Qt::StringLiterals;

qreal SideOf(const QRectF& area) { return std::min(area.width(), area.height()); }

QRectF Square(QPointF centre, qreal side) { return {centre.x() - side / 2, centre.y() - side / 2, side, side}; }

QRectF Inside(const QRectF& area, qreal inset) { return area.adjusted(inset, inset, -inset, -inset); }

QPen Solid(const QColor& colour, qreal width) { return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

QPen Dashed(const QColor& colour, qreal width, qreal dash, qreal gap) {
  QPen pen(colour, width, Qt::CustomDashLine, Qt::FlatCap, Qt::RoundJoin);
  pen.setDashPattern({dash / width, gap / width});
  return pen;
}

void Prepare(QPainter& painter, const QPen& pen, const QBrush& brush = Qt::NoBrush) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(pen);
  painter.setBrush(brush);
}

}  // namespace

void PaintCurrent(QPainter& painter, const QRectF& cell) {
  const qreal light = std::max(2.0, 0.04 * SideOf(cell));
  const qreal ink = std::max(light + 2, 0.09 * SideOf(cell));
  const QRectF rim = Inside(cell, ink / 2);
  Prepare(painter, Solid(kInk, ink));
  painter.drawRoundedRect(rim, ink / 2, ink / 2);
  painter.setPen(Solid(kCursorLight, light));
  painter.drawRoundedRect(rim, ink / 2, ink / 2);
}

void PaintSelected(QPainter& painter, const QRectF& area, qreal radius) {
  const qreal rim = std::max(1.0, 0.04 * SideOf(area));
  Prepare(painter, QPen(kSelectedRim, rim, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin), kSelected);
  painter.drawRoundedRect(Inside(area, rim / 2), radius, radius);
}

void PaintLastMove(QPainter& painter, const QRectF& area, std::optional<qreal> size) {
  constexpr qreal kContour = 1.2;
  // The contour is to stay inside as well.
  const QRectF inside = Inside(area, 1.5);
  const qreal side = std::min(size.value_or(0.24 * SideOf(area)), SideOf(inside) / 2);
  Prepare(painter, Solid(kWhite, kContour), kLastMove);
  const auto corner = [&](QPointF at, qreal x, qreal y) {
    painter.drawPolygon(QPolygonF({at, at + QPointF(x, 0), at + QPointF(0, y)}));
  };
  corner(inside.topLeft(), side, side);
  corner(inside.topRight(), -side, side);
  corner(inside.bottomLeft(), side, -side);
  corner(inside.bottomRight(), -side, -side);
}

void PaintReachable(QPainter& painter, const QRectF& cell, bool occupied) {
  const qreal side = SideOf(cell);
  const qreal width = 0.08 * side;
  if (occupied) {
    Prepare(painter, Solid(kReachable, width));
    painter.drawEllipse(Square(cell.center(), side - 1.5 * width));
  } else {
    Prepare(painter, Qt::NoPen, kReachable);
    painter.drawEllipse(Square(cell.center(), 0.32 * side));
  }
}

void PaintFirstEnd(QPainter& painter, const QRectF& cell) {
  const qreal side = SideOf(cell);
  Prepare(painter, Solid(kSelectedRim, side / 30), kSelected);
  painter.drawEllipse(Square(cell.center(), 0.6 * side));
  // In hundredths of the cell from its middle.
  const auto at = [&](qreal x, qreal y) { return cell.center() + QPointF(x, y) * side / 100; };
  QPainterPath anchor(at(0, -20));
  anchor.lineTo(at(0, 12));
  anchor.moveTo(at(-13, 6));
  anchor.quadTo(at(0, 28), at(13, 6));
  anchor.moveTo(at(-8, -10));
  anchor.lineTo(at(8, -10));
  painter.strokePath(anchor, Solid(kInk, side / 25));
}

// On dark ground the rim of the dots is lost, on light ground their middle.
void PaintFirstEndLine(QPainter& painter, QPointF from, QPointF to) {
  for (const auto& [colour, width] : {std::pair(kSelectedRim, 4.4), std::pair(kSelected, 1.8)}) {
    QPen dots = Dashed(colour, width, 1, 8);
    dots.setCapStyle(Qt::RoundCap);
    Prepare(painter, dots);
    painter.drawLine(from, to);
  }
}

void PaintLifted(QPainter& painter, const QRectF& cell) {
  const QRectF rim = Inside(cell, std::min(12.0, 0.07 * SideOf(cell)));
  for (const auto& [colour, width] : {std::pair(kSelectedRim, 4.0), std::pair(kSelected, 1.6)}) {
    Prepare(painter, Dashed(colour, width, 9, 6));
    painter.drawRoundedRect(rim, kPlateRadius, kPlateRadius);
  }
}

void PaintToFill(QPainter& painter, const QRectF& area, const QColor& army) {
  Prepare(painter, Dashed(army, 1.2, 4, 5), QColor(255, 255, 255, 140));
  painter.drawRoundedRect(Inside(area, 0.6), kTileRadius, kTileRadius);
}

void PaintFight(QPainter& painter, const QRectF& cell) {
  const qreal side = std::min(20.0, 0.5 * SideOf(cell));
  const QRectF disc = Square(cell.topRight() + QPointF(-0.75 * side, 0.75 * side), side);
  Prepare(painter, Solid(kSelectedRim, 1.5), kLampOnLand);
  painter.drawEllipse(disc);
  PaintPicture(painter, disc, u"sign_combat"_s, disc.size() * 0.7);
}

void PaintWinningCell(QPainter& painter, const QRectF& cell, const Colours& colours) {
  constexpr qreal kEdge = 3;
  Prepare(painter, Solid(colours.LitEdge, kEdge), colours.Lit);
  painter.drawRoundedRect(Inside(cell, 5 + kEdge / 2), kPlateRadius, kPlateRadius);
}

void PaintWinningStroke(QPainter& painter, QPointF from, QPointF to) {
  Prepare(painter, Solid(kWhite, 9));
  painter.drawLine(from, to);
  painter.setPen(Solid(kInk, 5.5));
  painter.drawLine(from, to);
}

void PaintWaitsForClick(QPainter& painter, const QRectF& board, const Colours& colours) {
  const QRectF rim = Inside(board, 3);
  Prepare(painter, Dashed(colours.LitEdge, 3, 12, 8));
  painter.drawRoundedRect(rim, kPlateRadius, kPlateRadius);
  QRectF lozenge(0, 0, 68, 44);
  lozenge.moveCenter({board.center().x(), board.bottom() + 7 - lozenge.height() / 2});
  Prepare(painter, Solid(colours.LitEdge, 2.4), colours.Lit);
  painter.drawRoundedRect(lozenge, lozenge.height() / 2, lozenge.height() / 2);
  PaintPicture(painter, lozenge, u"sign_clic"_s, {28, 28}, colours.LitText);
}

void PaintFocusRing(QPainter& painter, const QRectF& area, const Colours& colours, qreal offset, qreal radius) {
  Prepare(painter, Solid(colours.Focus, kFocusWidth));
  painter.drawRoundedRect(Inside(area, -offset), radius, radius);
}

}  // namespace brontavia::look
