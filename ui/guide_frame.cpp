#include "ui/guide_frame.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace brontavia {
namespace {

constexpr QSize kSmallest(280, 240);

}  // namespace

GuideFrame::GuideFrame(const QString& title, const QString& name) : QGroupBox(title) { setObjectName(name); }

QSize GuideFrame::minimumSizeHint() const { return kSmallest; }

void GuideFrame::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  option.subControls = QStyle::SC_GroupBoxLabel;
  QStylePainter(this).drawComplexControl(QStyle::CC_GroupBox, option);
}

}  // namespace brontavia
