// How the cells of the board of three in a row look.
#pragma once

#include "ui/cell_painter.h"

namespace brontavia {

// Text of a cell: "X", "O" or "*" for an empty one, which is a dot. Drawing: the symbol of the piece that has been
// lifted from there. Pieces keep their colours in every palette; on the current cell they have the highlight's.
class TerPainter : public CellPainter {
 public:
  void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const override;

  // The stroke through the winning three, and the sign that the board waits for a click.
  void PaintOver(QPainter& painter, const BoardView& board) const override;
  [[nodiscard]] QRegion OverArea(const BoardView& board) const override;
};

}  // namespace brontavia
