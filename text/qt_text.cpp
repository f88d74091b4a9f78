#include "text/qt_text.h"

#include "text/blanks.h"
#include "text/leading_number.h"

namespace brontavia {

using namespace Qt::StringLiterals;

double Val(QStringView text) { return Val(Characters(text)); }

QString TrimBlanks(QStringView text) { return QStringView(TrimBlanks(Characters(text))).toString(); }

QString FixedWidth(QStringView text, int width) { return text.toString().leftJustified(width, u' ', true); }

QString Shortened(const QString& text, qsizetype most) {
  return text.size() <= most ? text : QString(text.first(most - 1) + u'…');
}

QString ForScreen(QString text) {
  text.replace(kCrLf.toString(), u"\n"_s);
  for (QChar& character : text) {
    if (character == u'\r') character = u'\n';
    if (character.category() == QChar::Other_Control && character != u'\n') character = QChar::ReplacementCharacter;
  }
  return text;
}

QStringView From(QStringView text, int position) {
  return position > text.size() ? QStringView() : text.sliced(position - 1);
}

}  // namespace brontavia
