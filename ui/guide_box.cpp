#include "ui/guide_box.h"

#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <cmath>

#include "ui/look.h"

namespace brontavia {
namespace {

constexpr int kSideMargin = 5;  // around the text, besides the document's own margin
constexpr int kTopMargin = 4;
constexpr int kTextMargin = 2;
constexpr qreal kGap = 0.4;  // of the font's size

// Nothing is written after the last line end.
bool IsEmptyEnd(const QTextBlock& block) {
  return !block.next().isValid() && block.length() == 1 && block.position() > 0;
}

qreal GapOf(const QFont& font) { return kGap * look::PixelsOf(font); }

class GuideLayout : public QPlainTextDocumentLayout {
 public:
  using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

  [[nodiscard]] QRectF blockBoundingRect(const QTextBlock& block) const override {
    QRectF place = QPlainTextDocumentLayout::blockBoundingRect(block);
    if (IsEmptyEnd(block)) {
      place.setHeight(0);
    } else if (block.layout()->lineCount() > 1 && block.next().isValid() && !IsEmptyEnd(block.next())) {
      place.setHeight(place.height() + GapOf(document()->defaultFont()));
    }
    return place;
  }
};

}  // namespace

GuideBox::GuideBox(const QString& name, const QString& accessible_name, qreal factor)
    : TextBox(name, accessible_name), largest_(look::Scaled(font(), factor)) {
  auto* document = new QTextDocument(this);
  document->setDocumentMargin(kTextMargin);
  document->setDocumentLayout(new GuideLayout(document));
  setDocument(document);
  setViewportMargins(kSideMargin, kTopMargin, kSideMargin, kTopMargin);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFont(largest_);
  connect(this, &QPlainTextEdit::textChanged, this, &GuideBox::FitFont);
}

int GuideBox::heightForWidth(int width) const { return HeightOf(toPlainText(), width); }

int GuideBox::HeightOf(const QString& text, int width) const { return HeightOf(text, width, largest_); }

int GuideBox::HeightOf(const QString& text, int width, const QFont& font) const {
  QStringList lines = QString(text).remove(u'\r').split(u'\n');
  if (lines.size() > 1 && lines.last().isEmpty()) lines.removeLast();
  const qreal room = width - 2 * (frameWidth() + kSideMargin + kTextMargin);
  // A pixel more: the box would scroll a text of exactly its height.
  qreal height = 2 * (frameWidth() + kTopMargin + kTextMargin) + 1;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    QTextLayout layout(lines[i], font);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLeadingIncluded(true);
      line.setLineWidth(room);
      height += line.height();
    }
    layout.endLayout();
    if (layout.lineCount() > 1 && i + 1 < lines.size()) height += GapOf(font);
  }
  return static_cast<int>(std::ceil(height));
}

void GuideBox::resizeEvent(QResizeEvent* event) {
  TextBox::resizeEvent(event);
  FitFont();
}

void GuideBox::FitFont() {
  QFont fitting = largest_;
  const QString text = toPlainText();
  while (fitting.pixelSize() > look::kSmallestReadable && HeightOf(text, width(), fitting) > height()) {
    fitting.setPixelSize(fitting.pixelSize() - 1);
  }
  if (font() != fitting) setFont(fitting);
  // Lines count for scrolling as they were when they were last laid out, which is otherwise done when they are painted.
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) blockBoundingRect(block);
  // One that shows because a text did not fit takes room from the next.
  const bool fits = HeightOf(text, width(), fitting) <= height();
  setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}

}  // namespace brontavia
