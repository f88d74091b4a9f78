#include "tests/support/accessible_events.h"

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "ui/accessibility.h"

namespace brontavia::test {
namespace {

QList<AccessibleEvent> recorded;

void Record(QAccessibleEvent* event) {
  QAccessibleInterface* told = event->accessibleInterface();
  if (told == nullptr) return;
  recorded.append({.Type = event->type(), .Role = told->role(), .Name = told->text(QAccessible::Name)});
}

// The toolkit tells nothing while nobody listens.
void SetActive(bool active) { QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active); }

}  // namespace

AccessibleEvents::AccessibleEvents() {
  Forget();
  QAccessible::installUpdateHandler(Record);
  InstallAccessibility();
  SetActive(true);
}

AccessibleEvents::~AccessibleEvents() {
  SetActive(false);
  QAccessible::installUpdateHandler(nullptr);
  InstallAccessibility();
}

const QList<AccessibleEvent>& AccessibleEvents::All() { return recorded; }

void AccessibleEvents::Forget() { recorded.clear(); }

QStringList AccessibleEvents::Of(QAccessible::Event type) {
  QStringList names;
  for (const AccessibleEvent& event : recorded) {
    if (event.Type == type) names << event.Name;
  }
  return names;
}

QStringList AccessibleEvents::Announcements() {
  QStringList texts;
  for (const AccessibleEvent& event : recorded) {
    if (event.Type == QAccessible::ObjectShow && event.Role == QAccessible::Notification) texts << event.Name;
  }
  return texts;
}

}  // namespace brontavia::test
