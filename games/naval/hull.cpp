#include "games/naval/hull.h"

#include <QPainterPath>

namespace brontavia {
namespace {

constexpr int kCarrier = 5;
constexpr int kBattleship = 4;
constexpr int kSubmarine = 3;
constexpr qreal kMiddle = kUnitsOfCell / 2.0;

QPainterPath SurfaceHull(qreal tip) {
  QPainterPath hull(QPointF(5, 12));
  hull.quadTo(5, 8, 9, 8);
  hull.lineTo(tip - 24, 8);
  hull.quadTo(tip - 8, 9, tip, kMiddle);
  hull.quadTo(tip - 8, 31, tip - 24, 32);
  hull.lineTo(9, 32);
  hull.quadTo(5, 32, 5, 28);
  hull.closeSubpath();
  return hull;
}

QPainterPath RoundHull(qreal tip) {
  QPainterPath hull(QPointF(5, kMiddle));
  hull.quadTo(5, 10, 18, 10);
  hull.lineTo(tip - 22, 10);
  hull.quadTo(tip - 6, 11, tip, kMiddle);
  hull.quadTo(tip - 6, 29, tip - 22, 30);
  hull.lineTo(18, 30);
  hull.quadTo(5, 30, 5, kMiddle);
  hull.closeSubpath();
  return hull;
}

void PaintDeck(QPainter& painter, int length, qreal tip, const QColor& colour) {
  if (length == kCarrier) {
    QPen lines(colour, 2, Qt::CustomDashLine, Qt::FlatCap);
    lines.setDashPattern({4.5, 3});
    painter.setPen(lines);
    painter.drawLines({QLineF(12, 13, tip - 30, 13), QLineF(12, 27, tip - 30, 27)});
  } else if (length == kBattleship) {
    painter.setPen(QPen(colour, 3, Qt::SolidLine, Qt::FlatCap));
    painter.drawLines({QLineF(17, kMiddle, 8, kMiddle), QLineF(tip - 20, kMiddle, tip - 8, kMiddle)});
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (const qreal turret : {17.0, tip - 20}) painter.drawEllipse(QPointF(turret, kMiddle), 5.5, 5.5);
  } else if (length == kSubmarine) {
    painter.setPen(QPen(colour, 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLines({QLineF(12, kMiddle, 18, kMiddle), QLineF(tip - 18, kMiddle, tip - 10, kMiddle)});
  }
}

}  // namespace

void PaintHull(QPainter& painter, int length, const HullColours& colours, qreal edge) {
  const qreal tip = length * kUnitsOfCell - 4;
  painter.setPen(QPen(colours.Edge, edge, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
  painter.setBrush(colours.Hull);
  painter.drawPath(length == kSubmarine ? RoundHull(tip) : SurfaceHull(tip));
  if (colours.Deck.isValid()) PaintDeck(painter, length, tip, colours.Deck);
}

}  // namespace brontavia
