// The picture of chess in the list of games.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace brontavia {

void PaintChessPicture(QPainter& painter, const QRectF& area, const QPalette& palette);

}  // namespace brontavia
