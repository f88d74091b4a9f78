// A painter for boards whose look does not matter.
#pragma once

#include <QPainter>

#include "ui/cell_painter.h"

namespace brontavia::test {

class PlainPainter : public CellPainter {
 public:
  void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const override {
    painter.fillRect(area, look.Current ? Qt::blue : Qt::white);
  }
};

}  // namespace brontavia::test
