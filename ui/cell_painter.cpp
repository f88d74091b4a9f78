#include "ui/cell_painter.h"

#include <algorithm>

namespace brontavia {
namespace {

constexpr qreal kSmallestText = 7;
constexpr qreal kLargestText = 26;

}  // namespace

void PaintHeader(QPainter& painter, const QRectF& area, const CellLook& look) {
  painter.fillRect(area, look.Palette.color(QPalette::Button));
  QFont font = painter.font();
  const qreal side = std::min(area.width(), area.height());
  font.setPixelSize(static_cast<int>(std::clamp(side / 2, kSmallestText, kLargestText)));
  painter.setFont(font);
  painter.setPen(look.Palette.color(QPalette::ButtonText));
  painter.drawText(area, Qt::AlignCenter, look.Text);
}

}  // namespace brontavia
