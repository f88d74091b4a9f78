// The picture of the naval battle in the list of games.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace brontavia {

void PaintNavalPicture(QPainter& painter, const QRectF& area, const QPalette& palette);

}  // namespace brontavia
