// A small picture of a board, painted as the board itself is.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <QSizeF>
#include <QStringList>

#include "ui/cell_painter.h"

namespace brontavia {

// A board, or a part of one, without headers. Its cells are painted at `CellSize` and then scaled into the picture, so
// that a painter draws as it does on a real board.
struct BoardPicture {
  QStringList Rows;  // of one length, a letter a cell
  QSizeF CellSize;
  CellContent (*ContentOf)(QChar letter) = nullptr;
  CellIndex First;  // of the cell at the top left; a board with headers begins at {1, 1}
};

// Fills `area`.
void PaintBoardPicture(QPainter& painter, const QRectF& area, const QPalette& palette, const CellPainter& cells,
                       const BoardPicture& board);

}  // namespace brontavia
