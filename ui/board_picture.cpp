#include "ui/board_picture.h"

#include <QPainterPath>

#include "ui/look.h"

namespace brontavia {
namespace {

constexpr qreal kRadius = 4;

QColor ColourOf(ColourValue value) {
  if (value == kDefaultColour) return {};
  return {value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF};
}

}  // namespace

void PaintBoardPicture(QPainter& painter, const QRectF& area, const QPalette& palette, const CellPainter& cells,
                       const BoardPicture& board) {
  QPainterPath frame;
  frame.addRoundedRect(area, kRadius, kRadius);
  painter.save();
  painter.setClipPath(frame, Qt::IntersectClip);
  painter.translate(area.topLeft());
  const QSizeF& cell = board.CellSize;
  const int rows = static_cast<int>(board.Rows.size());
  const int columns = static_cast<int>(board.Rows.first().size());
  painter.scale(area.width() / (columns * cell.width()), area.height() / (rows * cell.height()));
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const CellContent content = board.ContentOf(board.Rows[row][column]);
      const CellLook look{.Index = {row, column},
                          .Text = content.Text,
                          .ForeColour = ColourOf(content.ForeColour),
                          .BackColour = ColourOf(content.BackColour),
                          .Marks = content.Marks,
                          .Drawing = content.Drawing,
                          .Palette = palette,
                          .CellSize = cell};
      cells.Paint(painter, QRectF({column * cell.width(), row * cell.height()}, cell), look);
    }
  }
  painter.restore();
  painter.setPen(look::ColoursOf(palette).Line);
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(frame);
}

}  // namespace brontavia
