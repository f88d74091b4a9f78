#include "ui/text_box.h"

#include <QFontMetrics>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include "text/qt_text.h"

namespace brontavia {
namespace {

// A text that is laid out takes forty bytes a character, and the time grows with the square of a line's length.
constexpr int kMostLines = 5000;
constexpr int kMostCharacters = 262'144;
constexpr qsizetype kMostAtOnce = 16'384;
constexpr qsizetype kLongestLine = 500;

}  // namespace

TextBox::TextBox(const QString& name, const QString& accessible_name, QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName(name);
  setAccessibleName(accessible_name);
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setMaximumBlockCount(kMostLines);
}

void TextBox::SetText(const QString& text) { setPlainText(ForScreen(Shortened(text, kMostAtOnce))); }

void TextBox::AppendText(const QString& text) {
  moveCursor(QTextCursor::End);
  insertPlainText(ForScreen(text.last(qMin(text.size(), kMostAtOnce))));
  ForgetOldest();
  ensureCursorVisible();
}

void TextBox::AddLine(const QString& line) {
  const QString shown = ForScreen(Shortened(line, kLongestLine));
  QTextCursor cursor(document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertBlock();
  cursor.insertText(shown);
  ForgetOldest();
  const int end = cursor.position();
  cursor.setPosition(end - static_cast<int>(shown.size()));
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void TextBox::ForgetOldest() {
  const int excess = document()->characterCount() - kMostCharacters;
  if (excess <= 0) return;
  const QTextBlock following = document()->findBlock(excess - 1).next();
  QTextCursor oldest(document());
  oldest.setPosition(following.isValid() ? following.position() : excess, QTextCursor::KeepAnchor);
  oldest.removeSelectedText();
}

void TextBox::SetMinimumLines(int lines) {
  const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  setMinimumHeight(QFontMetrics(font()).lineSpacing() * lines + frame + 2);
}

}  // namespace brontavia
