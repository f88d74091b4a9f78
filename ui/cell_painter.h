// How the cells of one game's board look. Each game has its own painter.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QString>

#include "seams/board_model.h"

namespace brontavia {

struct CellLook {
  CellIndex Index;
  QString Text;
  QColor ForeColour;  // invalid: the board's default
  QColor BackColour;  // invalid: the board's default
  brontavia::Marks Marks;
  int Drawing = 0;  // see CellContent
  bool Current = false;
  bool Header = false;
  QPalette Palette;
  QSizeF CellSize;  // of every cell but headers, before rounding to pixels
};

class CellPainter {
 public:
  CellPainter() = default;
  CellPainter(const CellPainter&) = delete;
  CellPainter& operator=(const CellPainter&) = delete;
  virtual ~CellPainter() = default;

  // Fills `area`, in device-independent pixels. The current cell shows the highlight colours.
  virtual void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const = 0;
};

// A header in the palette's button colours. Header row and header column get letters of the same size.
void PaintHeader(QPainter& painter, const QRectF& area, const CellLook& look);

}  // namespace brontavia
