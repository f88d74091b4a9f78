// A text box for instructions, which can be as high as its text; where it gets less room, it writes smaller. A line end
// that was given can be told from one that is due to the box's width: after a given line that wraps there is a gap.
#pragma once

#include <QFont>

#include "ui/text_box.h"

namespace brontavia {

class GuideBox : public TextBox {
  Q_OBJECT

 public:
  // Written `factor` times as large as the user's font.
  GuideBox(const QString& name, const QString& accessible_name, qreal factor = 1);

  // How high the box has to be for its text at full size when it is `width` wide.
  [[nodiscard]] int heightForWidth(int width) const override;
  // The same with another text.
  [[nodiscard]] int HeightOf(const QString& text, int width) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] int HeightOf(const QString& text, int width, const QFont& font) const;
  // Below look::kSmallestReadable the box scrolls rather than write smaller.
  void FitFont();

  QFont largest_;
};

}  // namespace brontavia
