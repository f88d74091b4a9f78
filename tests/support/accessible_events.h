// What screen readers are told, in the order in which it is told.
#pragma once

#include <QAccessible>
#include <QList>
#include <QStringList>

namespace brontavia::test {

struct AccessibleEvent {
  QAccessible::Event Type;
  QAccessible::Role Role;
  QString Name;  // as a screen reader that asks at once gets it
};

// Stands behind what the program installs, as the platform does where a screen reader runs. One at a time.
class AccessibleEvents {
 public:
  AccessibleEvents();
  AccessibleEvents(const AccessibleEvents&) = delete;
  AccessibleEvents& operator=(const AccessibleEvents&) = delete;
  ~AccessibleEvents();

  [[nodiscard]] static const QList<AccessibleEvent>& All();
  static void Forget();

  // The names of those of a kind.
  [[nodiscard]] static QStringList Of(QAccessible::Event type);
  [[nodiscard]] static QStringList Announcements();
};

}  // namespace brontavia::test
