// One line that tells what the keys do now: each key as a cap, its use after it. What does not fit is left out from the
// end.
#pragma once

#include <QWidget>

#include "seams/key_hint.h"

namespace brontavia {

class KeyLine : public QWidget {
  Q_OBJECT

 public:
  explicit KeyLine(QWidget* parent = nullptr);

  // `keys`, and F11, which every window knows.
  void Show(const KeyHints& keys);
  // Those for which there is room.
  [[nodiscard]] KeyHints Shown() const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QFont CapFont() const;
  [[nodiscard]] QFont UseFont() const;
  [[nodiscard]] int CapWidth(const KeyHint& hint) const;
  // Of the cap and the use.
  [[nodiscard]] int WidthOf(const KeyHint& hint) const;

  KeyHints keys_;
};

}  // namespace brontavia
