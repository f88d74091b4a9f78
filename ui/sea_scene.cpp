#include "ui/sea_scene.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/look.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr qreal kLowest = 60;  // pixels

// Parts of the height.
constexpr qreal kSeaLevel = 0.62;
constexpr qreal kWave = 0.0385;
constexpr qreal kDrawing = 0.873;  // side of boat and lighthouse

constexpr qreal kLargestDrawing = 340;  // pixels
constexpr int kWaves = 12;

// Parts of the width: the middle of each.
constexpr qreal kBoat = 0.12;
constexpr qreal kLighthouse = 0.86;
constexpr qreal kWidest = 0.22;  // of a drawing

// Of a drawing's side: where its waterline lies below its middle.
constexpr qreal kWaterline = 0.21;
constexpr qreal kShore = 0.25;

constexpr QColor kSky{0xE3, 0xEE, 0xF4};
constexpr QColor kWater{0x9C, 0xC3, 0xD8};

QPainterPath Water(const QRectF& scene) {
  const qreal level = scene.top() + scene.height() * kSeaLevel;
  const qreal crest = std::min(scene.height(), kLargestDrawing) * kWave;
  const qreal half = scene.width() / (2 * kWaves);
  QPainterPath water(QPointF(scene.left(), level));
  for (int wave = 0; wave < 2 * kWaves; ++wave) {
    const QPointF end(scene.left() + (wave + 1) * half, level);
    water.quadTo(end + QPointF(-half / 2, wave % 2 == 0 ? -crest : crest), end);
  }
  water.lineTo(scene.bottomRight());
  water.lineTo(scene.bottomLeft());
  return water;
}

}  // namespace

SeaScene::SeaScene(Shows shows) : shows_(shows) {}

void SeaScene::paintEvent(QPaintEvent* /*event*/) {
  if (height() < kLowest) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const look::Colours colours = look::ColoursOf(palette());
  const QRectF scene = rect();
  QPainterPath frame;
  frame.addRoundedRect(scene, look::kButtonRadius, look::kButtonRadius);
  painter.fillPath(frame, colours.Dark ? colours.Sea : kSky);
  painter.fillPath(frame.intersected(Water(scene)), colours.Dark ? colours.SeaLine : kWater);

  const qreal side = std::min({scene.height() * kDrawing, kLargestDrawing, scene.width() * kWidest});
  const qreal level = scene.top() + scene.height() * kSeaLevel;
  const auto paint = [&](const QString& name, qreal middle, qreal below) {
    QRectF place(0, 0, side, side);
    place.moveCenter({scene.left() + scene.width() * middle, level - side * below + side * kWave});
    look::PaintPicture(painter, place, name, place.size());
  };
  paint(u"scene_lighthouse"_s, kLighthouse, kShore);
  if (shows_ == Shows::Lighthouse) return;
  paint(u"scene_boat"_s, kBoat, kWaterline);
  // The way that is still to be sailed.
  const QPointF from(scene.left() + scene.width() * kBoat + side * 0.45, level + side * 0.15);
  const QPointF to(scene.left() + scene.width() * kLighthouse - side * 0.45, from.y());
  QPainterPath way(from);
  way.quadTo((from + to) / 2 + QPointF(0, side * 0.16), to);
  QPen dots(look::kWhite, 3.4);
  dots.setCapStyle(Qt::RoundCap);
  dots.setDashPattern({0.01, 3.5});
  painter.setPen(dots);
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(way);
}

}  // namespace brontavia
