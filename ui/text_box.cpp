#include "ui/text_box.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>
#include <array>

#include "text/qt_text.h"
#include "ui/look.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// A text that is laid out takes forty bytes a character, and the time grows with the square of a line's length.
constexpr int kMostLines = 5000;
constexpr int kMostCharacters = 262'144;
constexpr qsizetype kMostAtOnce = 16'384;
constexpr qsizetype kLongestLine = 500;

constexpr int kFrame = 3;       // room for the ring of the focus
constexpr int kSideMargin = 4;  // beyond it, left and right
constexpr int kTextMargin = 2;
constexpr qreal kEdgeWidth = 1;
constexpr std::array kStretches{100, 92, 85, 75};
// Measuring a text takes time in proportion to its length; none that the program writes into such a box is longer.
constexpr int kMostFitted = 600;

// How much room `paragraph` takes where its lines wrap in `width` pixels.
QSizeF SizeOfParagraph(const QString& paragraph, const QFont& font, qreal width) {
  QTextLayout layout(paragraph, font);
  layout.beginLayout();
  QSizeF size(0, 0);
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    size = {std::max(size.width(), line.naturalTextWidth()), size.height() + line.height()};
  }
  layout.endLayout();
  return size;
}

}  // namespace

TextBox::TextBox(const QString& name, const QString& accessible_name, QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName(name);
  setAccessibleName(accessible_name);
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // lines wrap, at any character where they must
  setMaximumBlockCount(kMostLines);
  setFrameStyle(QFrame::Box);
  setLineWidth(kFrame);
  setViewportMargins(kSideMargin, 0, kSideMargin, 0);
  document()->setDocumentMargin(kTextMargin);
  ColourNewest();
}

void TextBox::SetText(const QString& text) {
  const QScopedValueRollback writing(being_written_, true);
  setPlainText(ForScreen(Shortened(text, kMostAtOnce)));
  Fit();
}

void TextBox::AppendText(const QString& text) {
  const QScopedValueRollback writing(being_written_, true);
  moveCursor(QTextCursor::End);
  insertPlainText(ForScreen(text.last(qMin(text.size(), kMostAtOnce))));
  ForgetOldest();
  Fit();
  ensureCursorVisible();
}

void TextBox::AddLine(const QString& line) {
  const QScopedValueRollback writing(being_written_, true);
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

void TextBox::SelectAll() {
  const QScopedValueRollback writing(being_written_, true);
  selectAll();
}

void TextBox::ForgetOldest() {
  const int excess = document()->characterCount() - kMostCharacters;
  if (excess <= 0) return;
  const QTextBlock following = document()->findBlock(excess - 1).next();
  QTextCursor oldest(document());
  oldest.setPosition(following.isValid() ? following.position() : excess, QTextCursor::KeepAnchor);
  oldest.removeSelectedText();
}

// ---- How it looks ----

bool TextBox::event(QEvent* event) {
  if (event->type() != QEvent::Paint) return QPlainTextEdit::event(event);
  PaintEdge();
  return true;
}

void TextBox::PaintEdge() {
  const look::Colours& colours = look::ColoursOf(palette());
  const qreal width = hasFocus() ? look::kFocusWidth : kEdgeWidth;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(palette().color(QPalette::Base));
  painter.setPen(QPen(hasFocus() ? colours.Focus : colours.Line, width));
  const QRectF edge = QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
  painter.drawRoundedRect(edge, look::kBoxRadius, look::kBoxRadius);
}

void TextBox::ColourNewest() {
  const look::Colours& colours = look::ColoursOf(palette());
  QPalette own = palette();
  own.setColor(QPalette::Inactive, QPalette::Highlight, colours.Newest);
  own.setColor(QPalette::Inactive, QPalette::HighlightedText, colours.Text);
  setPalette(own);
}

void TextBox::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ColourNewest();
}

void TextBox::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  update();
}

void TextBox::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  update();
}

// ---- Room for the text ----

void TextBox::SetMinimumLines(int lines) { setMinimumHeight(HeightFor(lines, font())); }

int TextBox::HeightFor(int lines, const QFont& font) {
  // A pixel more: the box would scroll a text of exactly its height.
  return qCeil(lines * SizeOfParagraph(u"X"_s, font, QWIDGETSIZE_MAX).height()) + 2 * (kFrame + kTextMargin) + 1;
}

void TextBox::FitText(const QFont& largest) {
  largest_ = largest;
  Fit();
}

void TextBox::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  Fit();
  // The newest line of a log stays in view. A text that is selected as a whole is read from its beginning.
  if (textCursor().selectionStart() > 0) ensureCursorVisible();
}

void TextBox::Fit() {
  if (!largest_) return;
  const QFont fitting = FittingFont();
  if (font() != fitting) setFont(fitting);
}

QFont TextBox::FittingFont() const {
  QFont font = *largest_;
  if (document()->characterCount() > kMostFitted) {
    font.setPixelSize(look::kSmallestReadable);
    return font;
  }
  for (int size = largest_->pixelSize(); size >= look::kSmallestReadable; --size) {
    font.setPixelSize(size);
    for (const int stretch : kStretches) {
      font.setStretch(stretch);
      if (Fits(font)) return font;
      if (lineWrapMode() == NoWrap) break;
    }
  }
  return font;
}

bool TextBox::Fits(const QFont& font) const {
  const bool wraps = lineWrapMode() != NoWrap;
  const QSize room =
      contentsRect().size().shrunkBy({kSideMargin + kTextMargin, kTextMargin, kSideMargin + kTextMargin, kTextMargin});
  QString text = toPlainText();
  while (text.endsWith(u'\n')) text.chop(1);
  qreal height = 0;
  for (const QString& paragraph : text.split(u'\n')) {
    const QSizeF size = SizeOfParagraph(paragraph, font, wraps ? room.width() : QWIDGETSIZE_MAX);
    if (size.width() > room.width()) return false;
    height += size.height();
  }
  return height < room.height();  // the box would scroll a text of exactly its height
}

}  // namespace brontavia
