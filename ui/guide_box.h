// A text box for instructions, which can be as high as its text. A line end that was given can be told from one that is
// due to the box's width: after a given line that wraps there is a gap.
#pragma once

#include "ui/text_box.h"

namespace brontavia {

class GuideBox : public TextBox {
  Q_OBJECT

 public:
  GuideBox(const QString& name, const QString& accessible_name, QWidget* parent = nullptr);

  // How high the box has to be for its text, without scrolling, when it is `width` wide.
  [[nodiscard]] int heightForWidth(int width) const override;
  // The same with another text.
  [[nodiscard]] int HeightOf(const QString& text, int width) const;
};

}  // namespace brontavia
