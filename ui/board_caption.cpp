#include "ui/board_caption.h"

#include <QPainter>

#include "ui/look.h"

namespace brontavia {
namespace {

constexpr qreal kSignToText = 0.4;  // of the font

}  // namespace

BoardCaption::BoardCaption(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("BoardCaption"));
  setTextFormat(Qt::PlainText);
}

void BoardCaption::Show(const QString& caption, PlayerSign owner) {
  owner_ = owner;
  setText(caption);
  update();
}

void BoardCaption::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor colour = palette().color(QPalette::WindowText);
  look::PaintPlayerSign(painter, QRectF(0, 0, height(), height()), owner_, colour);
  painter.setPen(colour);
  painter.drawText(rect().adjusted(height() + qRound(kSignToText * look::PixelsOf(font())), 0, 0, 0), Qt::AlignVCenter,
                   text());
}

}  // namespace brontavia
