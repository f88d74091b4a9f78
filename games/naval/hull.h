// The ships of the naval battle as they are drawn.
#pragma once

#include <QColor>
#include <QPainter>

namespace brontavia {

inline constexpr int kUnitsOfCell = 40;

struct HullColours {
  QColor Hull;
  QColor Edge;
  QColor Deck;  // invalid: the hull has none
};

// A hull whose stern is at (0, 0) and whose bow points to the right: kUnitsOfCell high, `length` (2..5) times as long.
// Its edge is `edge` units wide.
void PaintHull(QPainter& painter, int length, const HullColours& colours, qreal edge);

}  // namespace brontavia
