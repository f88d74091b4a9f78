// Tells a screen reader what has just appeared in a text box that does not have the focus.
#pragma once

#include <QLabel>
#include <QStringList>
#include <QTimer>

namespace brontavia {

// One to a window. Where Qt can announce a text by itself that is used; before Qt 6.8 a label of role Notification is
// given the text and shown, which a screen reader takes for an announcement, and hidden again before the next.
class Announcer : public QLabel {
  Q_OBJECT

 public:
  explicit Announcer(QWidget* window);

  // Texts announced by one handler are spoken together. Very long ones are cut.
  void Announce(const QString& text);

 private:
  void Speak();

  QStringList waiting_;
  QTimer speak_;
};

}  // namespace brontavia
