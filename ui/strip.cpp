#include "ui/strip.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "text/qt_text.h"
#include "ui/look.h"
#include "ui/strip_plate.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kBetween = 12;
constexpr int kNarrow = 876;  // in windows under 900
constexpr qsizetype kLongestName = 40;

ScoreboardSide Showable(ScoreboardSide side) {
  side.Name = ForScreen(Shortened(side.Name, kLongestName)).replace(u'\n', u' ');
  return side;
}

// Screen readers read texts whole when they come to them, and labels only by their names.
class StripAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit StripAccessible(Strip& strip) : QAccessibleWidget(&strip, QAccessible::EditableText), strip_(strip) {}

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    return state;
  }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? strip_.Sentence() : QAccessibleWidget::text(kind);
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                              : QAccessibleWidget::interface_cast(type);
  }

  [[nodiscard]] QString text(int start, int end) const override { return strip_.Sentence().mid(start, end - start); }
  [[nodiscard]] int characterCount() const override { return static_cast<int>(strip_.Sentence().size()); }
  // There is nothing to choose from, and no cursor that moves.
  void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
  [[nodiscard]] int selectionCount() const override { return 0; }
  void addSelection(int /*start*/, int /*end*/) override {}
  void removeSelection(int /*index*/) override {}
  void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
  [[nodiscard]] int cursorPosition() const override { return 0; }
  void setCursorPosition(int /*position*/) override {}
  // Words are spread over the plates.
  [[nodiscard]] QRect characterRect(int /*offset*/) const override { return rect(); }
  [[nodiscard]] int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
  void scrollToSubstring(int /*start*/, int /*end*/) override {}
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

 private:
  Strip& strip_;
};

}  // namespace

Strip::Strip(QWidget* parent) : QWidget(parent) {
  setObjectName(u"Strip"_s);
  setAccessibleName(u"Marcador"_s);
  setFocusPolicy(Qt::TabFocus);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void Strip::Show(const Scoreboard& scoreboard) {
  const Scoreboard shown{Showable(scoreboard.Own), Showable(scoreboard.Other)};
  if (shown == scoreboard_) return;
  if (shown.Own != scoreboard_.Own) update(Touched(true));
  if (shown.Other != scoreboard_.Other) update(Touched(false));
  scoreboard_ = shown;
}

int Strip::heightForWidth(int width) const {
  return qRound(3.3 * look::PixelsOf(font()) + (width < kNarrow ? 5 : 13)) + kPlatePoint;
}

QSize Strip::sizeHint() const { return {kNarrow, heightForWidth(kNarrow)}; }

QSize Strip::minimumSizeHint() const {
  const int width = qRound(36 * look::PixelsOf(font()));
  return {width, heightForWidth(width)};
}

QRect Strip::Plate(bool own) const {
  const int width = (this->width() - kBetween) / 2;
  return {own ? 0 : this->width() - width, 0, width, heightForWidth(this->width()) - kPlatePoint};
}

QRect Strip::Touched(bool own) const { return Plate(own).adjusted(0, 0, 0, kPlatePoint); }

void Strip::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const look::Colours colours = look::ColoursOf(palette());
  for (const bool own : {true, false}) {
    if (!event->rect().intersects(Touched(own))) continue;
    PaintPlate(painter, own ? scoreboard_.Own : scoreboard_.Other, Plate(own), !own, font(), colours, hasFocus());
  }
}

void Strip::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) updateGeometry();
  QWidget::changeEvent(event);
}

QAccessibleInterface* MakeAccessible(Strip& strip) { return new StripAccessible(strip); }

}  // namespace brontavia
