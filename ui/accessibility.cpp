#include "ui/accessibility.h"

#include <QAccessibleWidget>

#include "ui/announcer.h"
#include "ui/board_accessible.h"
#include "ui/board_view.h"
#include "ui/strip.h"
#include "ui/text_box.h"

namespace brontavia {
namespace {

class AnnouncementAccessible : public QAccessibleWidget {
 public:
  explicit AnnouncementAccessible(Announcement& label) : QAccessibleWidget(&label, QAccessible::Notification) {}
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? static_cast<Announcement*>(object())->text() : QString();
  }
};

QAccessibleInterface* MakeInterface(const QString& /*class_name*/, QObject* object) {
  if (auto* board = qobject_cast<BoardView*>(object)) return MakeAccessible(*board);
  if (auto* label = qobject_cast<Announcement*>(object)) return new AnnouncementAccessible(*label);
  if (auto* strip = qobject_cast<Strip*>(object)) return MakeAccessible(*strip);
  return nullptr;
}

// Screen readers speak a selection wherever it is, and what is written into the text that has the focus; all that is
// new in a text box is announced.
bool IsSaidOtherwise(const QAccessibleEvent& event) {
  const auto* box = qobject_cast<TextBox*>(event.object());
  if (box == nullptr) return false;
  switch (event.type()) {
    case QAccessible::TextCaretMoved:
    case QAccessible::TextSelectionChanged:
      return !box->hasFocus() || box->IsBeingWritten();
    default:
      return false;
  }
}

// What cannot be seen has nothing to tell but that it has gone: a screen reader that hears of it before it shows looks
// at it at once, and takes it for invisible ever after.
bool IsUnseen(const QAccessibleEvent& event) {
  const auto* widget = qobject_cast<QWidget*>(event.object());
  return widget != nullptr && !widget->isVisible() && !widget->isWindow() && event.type() != QAccessible::ObjectHide &&
         event.type() != QAccessible::ObjectDestroyed;
}

// Who was told before this handler was installed; none: the platform.
QAccessible::UpdateHandler next_handler = nullptr;

void TellWhatMatters(QAccessibleEvent* event) {
  if (IsSaidOtherwise(*event) || IsUnseen(*event)) return;
  QAccessible::installUpdateHandler(next_handler);
  QAccessible::updateAccessibility(event);
  QAccessible::installUpdateHandler(TellWhatMatters);
}

}  // namespace

void InstallAccessibility() {
  QAccessible::installFactory(MakeInterface);
  next_handler = QAccessible::installUpdateHandler(TellWhatMatters);
}

}  // namespace brontavia
