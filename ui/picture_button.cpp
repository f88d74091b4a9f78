#include "ui/picture_button.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace brontavia {
namespace {

constexpr qreal kCaption = 1.2;  // of the user's font
constexpr int kGap = 18;
constexpr int kSmallestPicture = 44;
constexpr qreal kEdge = 1;

// As wide as its longest word.
QSize SmallestSizeOf(const QString& caption, const QFontMetrics& metrics) {
  int widest = 0;
  const QStringList words = caption.split(u' ');
  for (const QString& word : words) widest = std::max(widest, metrics.horizontalAdvance(word));
  return {widest, static_cast<int>(words.size()) * metrics.lineSpacing()};
}

QColor Between(const QColor& one, const QColor& other) {
  return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2, (one.blue() + other.blue()) / 2};
}

}  // namespace

PictureButton::PictureButton(const QString& caption, Picture picture, qreal inset)
    : QPushButton(caption), picture_(std::move(picture)), inset_(inset) {
  setFont(look::Scaled(font(), kCaption, true));
  setAutoDefault(true);
  setAttribute(Qt::WA_Hover);
}

QSize PictureButton::sizeHint() const {
  const QSize smallest = minimumSizeHint();
  const QSize line = fontMetrics().size(Qt::TextSingleLine, text());
  return {std::max(smallest.width(), line.width() + kSmallestPicture + 3 * kGap), smallest.height()};
}

QSize PictureButton::minimumSizeHint() const {
  const QSize caption = SmallestSizeOf(text(), fontMetrics());
  return {caption.width() + kSmallestPicture + 3 * kGap,
          std::max(caption.height(), kSmallestPicture) + 2 * look::kUnit};
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const look::Colours colours = look::ColoursOf(palette());
  const bool raised = hasFocus() || (underMouse() && !isDown());
  const qreal width = hasFocus() ? look::kFocusWidth : kEdge;
  const QRectF plate = QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
  painter.setPen(QPen(hasFocus() ? colours.Focus : colours.Line, width));
  painter.setBrush(raised ? colours.Base : Between(colours.Window, colours.Base));
  painter.drawRoundedRect(plate, look::kButtonRadius, look::kButtonRadius);

  const int inset = qRound(inset_ * height());
  const int side = height() - 2 * inset;
  const QRect picture(kGap, inset, side, side);
  picture_(painter, QRectF(picture), colours);
  const int room = this->width() - picture.right() - kGap;
  // A word that needs it takes the gap at the end.
  const int gap = std::clamp(room - SmallestSizeOf(text(), fontMetrics()).width(), look::kUnit, kGap);
  const QRect caption(picture.right() + kGap, 0, room - gap, height());
  painter.setFont(font());
  painter.setPen(colours.Text);
  painter.drawText(caption, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text());
}

}  // namespace brontavia
