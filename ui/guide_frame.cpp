#include "ui/guide_frame.h"

#include <QPainter>
#include <QStyleOptionGroupBox>

namespace brontavia {
namespace {

constexpr QSize kSmallest(280, 240);

}  // namespace

GuideFrame::GuideFrame(const QString& title, const QString& name) : QGroupBox(title) { setObjectName(name); }

QSize GuideFrame::minimumSizeHint() const { return kSmallest; }

void GuideFrame::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  QRect place = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this);
  place.setLeft(contentsRect().left());
  place.setRight(contentsRect().right());
  QPainter painter(this);
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, title());
}

}  // namespace brontavia
