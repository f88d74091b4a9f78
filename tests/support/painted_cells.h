// Cells as a painter paints them, and what eyes without colours see of them.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "ui/cell_painter.h"

namespace brontavia::test {

inline const QColor kBeside = Qt::magenta;  // what no painter paints

inline QPalette PaletteOf(const QColor& window, const QColor& base) {
  QPalette palette(window);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::Highlight, QColor(0x2F, 0x6F, 0xA8));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}
inline QPalette LightPalette() { return PaletteOf({0xEF, 0xEF, 0xEF}, Qt::white); }
inline QPalette DarkPalette() { return PaletteOf({0x2A, 0x2C, 0x2F}, {0x1E, 0x20, 0x22}); }

// `size` in device-independent pixels.
inline QImage Painted(QSize size, const std::function<void(QPainter&)>& paint, qreal ratio = 1) {
  QImage image(size * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(kBeside);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  paint(painter);
  return image;
}

inline QImage Painted(const CellPainter& cells, CellLook look, int side, const QFont& font = {}) {
  look.CellSize = {static_cast<qreal>(side), static_cast<qreal>(side)};
  return Painted({side, side}, [&](QPainter& painter) {
    painter.setFont(font);
    cells.Paint(painter, QRectF(0, 0, side, side), look);
  });
}

// The smallest rectangle with all pixels that are `wanted`; empty where there are none.
inline QRect Bounds(const QImage& image, const std::function<bool(QColor)>& wanted) {
  QRect bounds;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (wanted(image.pixelColor(x, y))) bounds |= QRect(x, y, 1, 1);
    }
  }
  return bounds;
}

// The part of the pixels, 0 to 1, whose brightness differs plainly.
inline qreal Difference(const QImage& a, const QImage& b) {
  constexpr int kPlainly = 20;
  int different = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) >= kPlainly) ++different;
    }
  }
  return static_cast<qreal>(different) / a.width() / a.height();
}

// Every two of them differ in more than `part` of their pixels.
inline void ExpectAllToldApart(const std::vector<QImage>& images, qreal part, const std::string& where) {
  for (std::size_t a = 0; a < images.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) EXPECT_GT(Difference(images[a], images[b]), part) << a << ", " << b << where;
  }
}

}  // namespace brontavia::test
