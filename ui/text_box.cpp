#include "ui/text_box.h"

#include <QFontMetrics>
#include <QTextCursor>
#include <QTextDocument>

#include "text/qt_text.h"

namespace brontavia {
namespace {

constexpr int kMostLines = 5000;
// A peer can send a line of any length; laying out a megabyte would take minutes.
constexpr qsizetype kLongestLine = 4000;

}  // namespace

TextBox::TextBox(const QString& name, const QString& accessible_name, QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName(name);
  setAccessibleName(accessible_name);
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setMaximumBlockCount(kMostLines);
}

void TextBox::SetText(const QString& text) { setPlainText(text); }

void TextBox::AppendText(const QString& text) {
  moveCursor(QTextCursor::End);
  insertPlainText(text);
  ensureCursorVisible();
}

void TextBox::AddLine(const QString& line) {
  QTextCursor cursor(document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertBlock();
  const int before = cursor.position();
  cursor.insertText(Shortened(line, kLongestLine));
  const int end = cursor.position();
  cursor.setPosition(qMin(before, end));
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void TextBox::SetMinimumLines(int lines) {
  const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  setMinimumHeight(QFontMetrics(font()).lineSpacing() * lines + frame + 2);
}

}  // namespace brontavia
