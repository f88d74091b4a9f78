#include <QCache>
#include <QImageReader>
#include <QPixmap>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/look.h"

namespace brontavia::look {
namespace {

using namespace Qt::StringLiterals;

struct Picture {
  QString Name;
  QSize Size;  // in device pixels
  QRgb Colour;
  friend bool operator==(const Picture&, const Picture&) = default;
  friend std::size_t qHash(const Picture& picture, std::size_t seed = 0) {
    return qHashMulti(seed, picture.Name, picture.Size.width(), picture.Size.height(), picture.Colour);
  }
};

// Of all kept pictures together, in pixels: a board at twice the scale with its strip.
constexpr qsizetype kKeptPixels = 2'000'000;

QPixmap Decode(const QString& name, const QSize& size) {
  QImageReader reader(u":/look/"_s + name + u".svg"_s, "svg");
  reader.setScaledSize(size);
  return QPixmap::fromImageReader(&reader);
}

QPixmap Decode(const Picture& picture) {
  QPixmap pixmap = Decode(picture.Name, picture.Size);
  if (!pixmap.isNull() && qAlpha(picture.Colour) != 0) {
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), QColor::fromRgba(picture.Colour));
  }
  return pixmap;
}

// Null when it cannot be shown.
QPixmap Kept(const Picture& picture) {
  static QCache<Picture, QPixmap> kept(kKeptPixels);
  if (const QPixmap* found = kept.object(picture)) return *found;
  QPixmap pixmap = Decode(picture);
  // One that cannot be shown is kept too, so that painting does not look for it each time.
  kept.insert(picture, new QPixmap(pixmap), std::max(1, pixmap.width() * pixmap.height()));
  return pixmap;
}

// Pixels of the device for one of the painter's, whichever way it is turned.
qreal ScaleOf(const QTransform& transform) { return std::sqrt(std::abs(transform.determinant())); }

// What stands for a player: its picture, and the letter where that cannot be shown.
struct SignOfPlayer {
  const char16_t* Picture;
  char16_t Letter;
  bool InTextColour;
};

constexpr std::array<SignOfPlayer, 8> kSigns{{{u"sign_x", u'X', false},
                                              {u"sign_o", u'O', false},
                                              {u"sign_flag0", u'S', true},
                                              {u"sign_flag1", u'C', true},
                                              {u"sign_sol", u'S', false},
                                              {u"sign_luna", u'L', false},
                                              {u"sign_white_king", u'R', false},
                                              {u"sign_black_king", u'r', false}}};

}  // namespace

bool PaintPicture(QPainter& painter, const QRectF& area, const QString& name, const QSizeF& size,
                  const QColor& colour) {
  const QTransform& transform = painter.deviceTransform();
  const qreal scale = ScaleOf(transform);
  const QSize pixels = (size * scale).toSize().expandedTo({1, 1});
  const QPixmap pixmap = Kept({name, pixels, colour.isValid() ? colour.rgba() : 0});
  if (pixmap.isNull()) return false;
  QRectF place(QPointF(), QSizeF(pixels) / scale);
  place.moveCenter(area.center());
  if (transform.type() <= QTransform::TxScale) {
    // Between two pixels of the device every line of the picture would be blurred.
    const QPointF corner = transform.map(place.topLeft());
    place.moveTopLeft(transform.inverted().map(QPointF(std::round(corner.x()), std::round(corner.y()))));
  }
  painter.drawPixmap(place, pixmap, QRectF(pixmap.rect()));
  return true;
}

void PaintPlayerSign(QPainter& painter, const QRectF& area, PlayerSign sign, const QColor& text) {
  const SignOfPlayer& drawn = kSigns.at(static_cast<std::size_t>(sign));
  const qreal side = std::min(area.width(), area.height());
  if (PaintPicture(painter, area, QString::fromUtf16(drawn.Picture), {side, side},
                   drawn.InTextColour ? text : QColor())) {
    return;
  }
  QFont font = painter.font();
  font.setPixelSize(std::max(1, static_cast<int>(side * 0.7)));
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(text);
  painter.drawText(area, Qt::AlignCenter, QChar(drawn.Letter));
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int side : {16, 32, 48, 256}) icon.addPixmap(Decode(u"icon-%1"_s.arg(side), {side, side}));
  return icon;
}

}  // namespace brontavia::look
