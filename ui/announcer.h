// Tells those who hear the screen what has just appeared where the focus is not.
#pragma once

#include <QLabel>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

namespace brontavia {

// One to a window. What one handler has to tell is spoken together, once it has returned or waits, and each text once:
// what is said as part of another text, what has been replaced meanwhile, and what is heard anyway is left out.
class Announcer : public QObject {
  Q_OBJECT

 public:
  explicit Announcer(QWidget& window);

  // Blanks around `text` are not spoken, and of a very long one the beginning.
  void Announce(const QString& text);
  // The same for a line that `box` shows from now on besides what it showed.
  void Add(const QWidget& box, const QString& line);
  // The same for the whole text of `box`; what it showed before and has not been spoken never will be.
  void Replace(const QWidget& box, const QString& text);

  // What is told to a person who comes to the window: spoken a moment after the window has come to the front, when the
  // screen reader has said where it is. Replaces what has not been spoken yet; an empty text takes it back.
  void AnnounceOnArrival(const QString& text);

  // The screen reader speaks `text` unasked, as the name of what it is on.
  void Heard(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Piece {
    const QWidget* Box;  // where it is shown, or none; never looked into
    QString Text;
  };

  void Queue(const QWidget* box, const QString& text);
  void Speak();
  [[nodiscard]] QString Sentence() const;

  QWidget& window_;
  QList<Piece> waiting_;
  QStringList heard_;
  QTimer speak_;
  QString guidance_;
  QTimer arrived_;
  QList<QPointer<QWidget>> spoken_;  // the oldest first
};

// What a screen reader takes for an announcement when it shows: a label that nobody sees, of role Notification.
class Announcement : public QLabel {
  Q_OBJECT

 public:
  explicit Announcement(QWidget* window);

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {}
};

}  // namespace brontavia
