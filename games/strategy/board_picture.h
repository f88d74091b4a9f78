// The pictures of the strategy games in the list of games.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace brontavia {

void PaintMiniEstrategaPicture(QPainter& painter, const QRectF& area, const QPalette& palette);
void PaintEstrategaPicture(QPainter& painter, const QRectF& area, const QPalette& palette);

}  // namespace brontavia
