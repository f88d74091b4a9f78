#include "ui/one_line_label.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <array>

#include "ui/look.h"

namespace brontavia {

OneLineLabel::OneLineLabel(const QString& text, Ink ink) : QLabel(text), ink_(ink) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize OneLineLabel::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(text()) + 1, metrics.height()};
}

QSize OneLineLabel::minimumSizeHint() const { return {0, sizeHint().height()}; }

void OneLineLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const qreal size = look::PixelsOf(font());
  const std::array words{text()};
  QFont fitting = font();
  if (width() < sizeHint().width())
    fitting = look::FittingFont(font(), words, QSizeF(this->size()), size).value_or(font());
  painter.setFont(fitting);
  const look::Colours colours = look::ColoursOf(palette());
  painter.setPen(ink_ == Ink::Muted ? colours.Muted : colours.Text);
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
}

}  // namespace brontavia
