// Whether a text box shows its whole text, so that nobody has to scroll.
#pragma once

#include <QScrollBar>
#include <QTextBlock>

#include "ui/text_box.h"

namespace brontavia::test {

inline bool ShowsAllOfItsText(const TextBox& box) {
  if (box.verticalScrollBar()->isVisible() || box.horizontalScrollBar()->isVisible()) return false;
  QTextCursor cursor(box.document());
  do {
    const QRect caret = box.cursorRect(cursor).adjusted(1, 0, -1, 0);
    if (!box.viewport()->rect().contains(caret)) return false;
  } while (cursor.movePosition(QTextCursor::NextCharacter));
  return true;
}

}  // namespace brontavia::test
