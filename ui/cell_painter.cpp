#include "ui/cell_painter.h"

#include <algorithm>

#include "ui/look.h"

namespace brontavia {
namespace {

constexpr qreal kPartOfCell = 0.3;
constexpr qreal kSmallest = 10;        // pixels
constexpr qreal kLargestTimes = 1.15;  // of the user's font

}  // namespace

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
