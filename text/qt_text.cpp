#include "text/qt_text.h"

#include "text/blanks.h"
#include "text/leading_number.h"

namespace brontavia {

double Val(QStringView text) { return Val(Characters(text)); }

QString TrimBlanks(QStringView text) { return QStringView(TrimBlanks(Characters(text))).toString(); }

QString FixedWidth(QStringView text, int width) { return text.toString().leftJustified(width, u' ', true); }

QString Shortened(const QString& text, qsizetype most) {
  return text.size() <= most ? text : QString(text.first(most - 1) + u'…');
}

QStringView From(QStringView text, int position) {
  return position > text.size() ? QStringView() : text.sliced(position - 1);
}

}  // namespace brontavia
