#include "ui/board_picture.h"

#include <QPainterPath>
#include <cmath>

#include "ui/look.h"

namespace brontavia {
namespace {

constexpr qreal kRadius = 4;

}  // namespace

void PaintBoardPicture(QPainter& painter, const QRectF& area, const QPalette& palette, const CellPainter& cells,
                       const BoardPicture& board) {
  QPainterPath frame;
  frame.addRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  painter.save();
  painter.setClipPath(frame, Qt::IntersectClip);
  const int rows = static_cast<int>(board.Rows.size());
  const int columns = static_cast<int>(board.Rows.first().size());
  // Between whole pixels, so that nothing shines through where two cells meet.
  const auto left = [&](int column) { return std::round(area.left() + area.width() * column / columns); };
  const auto top = [&](int row) { return std::round(area.top() + area.height() * row / rows); };
  const QSizeF& cell = board.CellSize;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const CellIndex index{board.First.Row + row, board.First.Column + column};
      const CellLook look = LookOf(index, board.ContentOf(board.Rows[row][column]), palette, cell);
      painter.save();
      painter.translate(left(column), top(row));
      painter.scale((left(column + 1) - left(column)) / cell.width(), (top(row + 1) - top(row)) / cell.height());
      cells.Paint(painter, QRectF(QPointF(), cell), look);
      painter.restore();
    }
  }
  painter.restore();
  painter.setPen(look::ColoursOf(palette).Line);
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(frame);
}

}  // namespace brontavia
