#include "ui/cell_painter.h"

#include <algorithm>

#include "ui/look.h"

namespace brontavia {
namespace {

constexpr qreal kPartOfCell = 0.3;
constexpr qreal kSmallest = 10;        // pixels
constexpr qreal kLargestTimes = 1.15;  // of the user's font

// Red is in the lowest byte.
QColor ColourOf(ColourValue value) {
  if (value == kDefaultColour) return {};
  return {value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF};
}

}  // namespace

CellLook LookOf(CellIndex index, const CellContent& content, const QPalette& palette, QSizeF cell_size) {
  return {.Index = index,
          .Text = content.Text,
          .ForeColour = ColourOf(content.ForeColour),
          .BackColour = ColourOf(content.BackColour),
          .Marks = content.Marks,
          .Drawing = content.Drawing,
          .Palette = palette,
          .CellSize = cell_size};
}

void PaintHeader(QPainter& painter, const QRectF& area, const CellLook& look) {
  QFont font = painter.font();
  const qreal largest = std::max(kSmallest, kLargestTimes * look::PixelsOf(font));
  font.setPixelSize(qRound(std::clamp(kPartOfCell * look.CellSize.height(), kSmallest, largest)));
  // The cells painted after it are written in the user's font.
  painter.save();
  painter.setFont(font);
  painter.setPen(look::ColoursOf(look.Palette).Muted);
  painter.drawText(area, Qt::AlignCenter, look.Text);
  painter.restore();
}

}  // namespace brontavia
