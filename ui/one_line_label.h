// One line of text that is never cut: where its place is too narrow, it is narrowed, then smaller.
#pragma once

#include <QLabel>

namespace brontavia {

class OneLineLabel : public QLabel {
  Q_OBJECT

 public:
  enum class Ink { Text, Muted };

  // In its own font and in the palette's colours.
  explicit OneLineLabel(const QString& text, Ink ink = Ink::Text);

  // What it needs at its font's own size; it takes less.
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Ink ink_;
};

}  // namespace brontavia
