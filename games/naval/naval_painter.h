// How the cells of a sea look.
#pragma once

#include "games/naval/sea_drawing.h"
#include "ui/cell_painter.h"

namespace brontavia {

namespace look {
struct Colours;
}  // namespace look

enum class ShipWriting { Name, Initial };

// A cell is water unless its Drawing (games/naval/sea_drawing.h) tells a ship, a margin or a ring. Where its BackColour
// is kWaterColour or kHitColour it shows the sign of such a shot. The cell's text joins its sign where the cell has
// room for both; ships have their names, or initials, written along the hull. Row and column of a cell count from 1.
class NavalPainter : public CellPainter {
 public:
  // With initials alone ships have no deck either: that is for small cells.
  explicit NavalPainter(ShipWriting writing = ShipWriting::Name) : writing_(writing) {}

  void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const override;

  // The line from the first end of a ship to the current cell, where that is straight, and the sign that the board
  // waits for a click.
  void PaintOver(QPainter& painter, const BoardView& board) const override;
  [[nodiscard]] QRegion OverArea(const BoardView& board) const override;

 private:
  // `cell` is the place of one segment of the ship; the whole hull is painted, clipped to it.
  void PaintShip(QPainter& painter, const QRectF& cell, const SeaDrawing& ship, const look::Colours& colours) const;
  void PaintWriting(QPainter& painter, const QRectF& cell, int length, const QColor& colour) const;
  void PaintSign(QPainter& painter, const QRectF& area, const CellLook& look, const SeaDrawing& drawing,
                 const look::Colours& colours) const;

  ShipWriting writing_;
};

}  // namespace brontavia
