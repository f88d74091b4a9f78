#include "ui/announcer.h"

#include <QAccessible>
#include <QEvent>
#include <chrono>
#include <utility>

#include "text/qt_text.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr qsizetype kLongestAnnouncement = 1000;
// A flood can keep the event loop from its next turn; the latest texts are spoken then.
constexpr qsizetype kMostWaiting = 50;

// A window that opens tells of each of its parts, and a screen reader with so much to hear drops announcements.
constexpr auto kTimeToArrive = 500ms;

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
// A screen reader asks for the text some time after it was told of it; until then the label has to be there. Under a
// flood of texts the oldest go first.
constexpr auto kTimeToAsk = 10s;
constexpr qsizetype kMostAtATime = 16;
#endif

bool IsPartOfWord(const QString& text, qsizetype position) {
  return position >= 0 && position < text.size() && text[position].isLetterOrNumber();
}

// As words: "A1" is not said with "A10".
bool SaysToo(const QString& whole, const QString& part) {
  for (qsizetype at = whole.indexOf(part); at >= 0; at = whole.indexOf(part, at + 1)) {
    if (!IsPartOfWord(whole, at - 1) && !IsPartOfWord(whole, at + part.size())) return true;
  }
  return false;
}

}  // namespace

Announcement::Announcement(QWidget* window) : QLabel(window) {
  setTextFormat(Qt::PlainText);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFixedSize(1, 1);
  hide();
}

Announcer::Announcer(QWidget& window) : window_(window) {
  speak_.setSingleShot(true);
  connect(&speak_, &QTimer::timeout, this, &Announcer::Speak);
  arrived_.setSingleShot(true);
  arrived_.setInterval(kTimeToArrive);
  connect(&arrived_, &QTimer::timeout, this, [this] { Announce(std::exchange(guidance_, {})); });
  window_.installEventFilter(this);
}

void Announcer::Announce(const QString& text) { Queue(nullptr, text); }

void Announcer::Add(const QWidget& box, const QString& line) { Queue(&box, line); }

void Announcer::Replace(const QWidget& box, const QString& text) {
  waiting_.removeIf([&](const Piece& piece) { return piece.Box == &box; });
  Queue(&box, text);
}

void Announcer::AnnounceOnArrival(const QString& text) {
  guidance_ = text;
  if (window_.isActiveWindow()) arrived_.start();
}

bool Announcer::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::WindowActivate && !guidance_.isEmpty()) arrived_.start();
  return false;
}

void Announcer::Heard(const QString& text) {
  heard_ << text.trimmed();
  if (heard_.size() > kMostWaiting) heard_.removeFirst();
  speak_.start(0);
}

void Announcer::Queue(const QWidget* box, const QString& text) {
  const QString piece = ForScreen(text.trimmed().left(kLongestAnnouncement));
  if (!piece.isEmpty()) waiting_.append({.Box = box, .Text = piece});
  if (waiting_.size() > kMostWaiting) waiting_.removeFirst();
  speak_.start(0);
}

QString Announcer::Sentence() const {
  QStringList sentences;
  for (qsizetype i = 0; i < waiting_.size(); ++i) {
    const QString& text = waiting_[i].Text;
    const auto said_by = [&](qsizetype other) {
      const QString& whole = waiting_[other].Text;
      return other != i && SaysToo(whole, text) && (whole != text || other < i);
    };
    bool said = heard_.contains(text);
    for (qsizetype other = 0; other < waiting_.size() && !said; ++other) said = said_by(other);
    if (!said) sentences << (text.back().isLetterOrNumber() ? text + u'.' : text);
  }
  return sentences.join(u' ').left(kLongestAnnouncement);
}

void Announcer::Speak() {
  const QString text = Sentence();
  waiting_.clear();
  heard_.clear();
  if (text.isEmpty()) return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QAccessibleAnnouncementEvent event(&window_, text);
  QAccessible::updateAccessibility(&event);
#else
  // Each has a label of its own: a screen reader that is told of two in a row asks for both texts after the second.
  auto* label = new Announcement(&window_);
  label->setText(text);
  label->show();
  QTimer::singleShot(kTimeToAsk, label, &QObject::deleteLater);
  spoken_.removeIf([](const QPointer<QWidget>& gone) { return gone.isNull(); });
  spoken_.append(label);
  if (spoken_.size() > kMostAtATime) delete spoken_.takeFirst();
#endif
}

}  // namespace brontavia
