#include "ui/announcer.h"

#include <QAccessible>
#include <utility>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kLongestAnnouncement = 500;

}  // namespace

Announcer::Announcer(QWidget* window) : QLabel(window) {
  setObjectName(u"Announcer"_s);
  setTextFormat(Qt::PlainText);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFixedSize(1, 1);
  hide();
  speak_.setSingleShot(true);
  connect(&speak_, &QTimer::timeout, this, &Announcer::Speak);
}

void Announcer::Announce(const QString& text) {
  QString sentence = text.trimmed().left(kLongestAnnouncement);
  if (sentence.isEmpty()) return;
  if (sentence.back().isLetterOrNumber()) sentence += u'.';
  waiting_ << sentence;
  speak_.start(0);
}

void Announcer::Speak() {
  const QString text = std::exchange(waiting_, {}).join(u' ').left(kLongestAnnouncement);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QAccessibleAnnouncementEvent event(window(), text);
  QAccessible::updateAccessibility(&event);
#else
  hide();
  setText(text);
  show();
#endif
}

}  // namespace brontavia
