// The picture of three in a row in the list of games.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace brontavia {

void PaintTerPicture(QPainter& painter, const QRectF& area, const QPalette& palette);

}  // namespace brontavia
