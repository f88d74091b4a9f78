#include "ui/guide_box.h"

#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <cmath>

#include "ui/look.h"

namespace brontavia {
namespace {

constexpr qreal kMargin = 8;
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

GuideBox::GuideBox(const QString& name, const QString& accessible_name, QWidget* parent)
    : TextBox(name, accessible_name, parent) {
  auto* document = new QTextDocument(this);
  document->setDocumentMargin(kMargin);
  document->setDocumentLayout(new GuideLayout(document));
  setDocument(document);
}

int GuideBox::heightForWidth(int width) const { return HeightOf(toPlainText(), width); }

int GuideBox::HeightOf(const QString& text, int width) const {
  const qreal margins = 2 * (frameWidth() + document()->documentMargin());
  QStringList lines = QString(text).remove(u'\r').split(u'\n');
  if (lines.size() > 1 && lines.last().isEmpty()) lines.removeLast();
  qreal height = margins;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    QTextLayout layout(lines[i], font());
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLeadingIncluded(true);
      line.setLineWidth(width - margins);
      height += line.height();
    }
    layout.endLayout();
    if (layout.lineCount() > 1 && i + 1 < lines.size()) height += GapOf(font());
  }
  return static_cast<int>(std::ceil(height));
}

}  // namespace brontavia
