// How the cells of one game's board look. Each game has its own painter.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QString>

namespace brontavia {

struct CellLook {
  QString Text;
  QColor ForeColour;  // invalid: the board's default
  bool Current = false;
  QPalette Palette;
};

class CellPainter {
 public:
  CellPainter() = default;
  CellPainter(const CellPainter&) = delete;
  CellPainter& operator=(const CellPainter&) = delete;
  virtual ~CellPainter() = default;

  // Fills `area`, which is in device-independent pixels. The current cell is to show the highlight colours.
  virtual void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const = 0;
};

}  // namespace brontavia
