// How the cells of one game's board look. Each game has its own painter.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QRegion>
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

// How the content of a cell looks that is neither current nor a header.
[[nodiscard]] CellLook LookOf(CellIndex index, const CellContent& content, const QPalette& palette, QSizeF cell_size);

class BoardView;

class CellPainter {
 public:
  CellPainter() = default;
  CellPainter(const CellPainter&) = delete;
  CellPainter& operator=(const CellPainter&) = delete;
  virtual ~CellPainter() = default;

  // Fills `area`, in device-independent pixels. The current cell shows the highlight colours.
  virtual void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const = 0;

  // Paints what reaches across cells, over all of them. The painter is clipped to what is being painted again.
  virtual void PaintOver(QPainter& /*painter*/, const BoardView& /*board*/) const {}

  // Where PaintOver paints now. The board asks after every change of a cell or of the current one, and where the answer
  // has changed, the former and the new place are painted again.
  [[nodiscard]] virtual QRegion OverArea(const BoardView& /*board*/) const { return {}; }
};

// A header as writing on the window's ground. Header row and header column get letters of the same size.
void PaintHeader(QPainter& painter, const QRectF& area, const CellLook& look);

}  // namespace brontavia
