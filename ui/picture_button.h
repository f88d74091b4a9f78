// A large button with a picture beside its caption.
#pragma once

#include <QPushButton>
#include <functional>

namespace brontavia {

class PictureButton : public QPushButton {
  Q_OBJECT

 public:
  // Paints the picture into a square. `ink` is the colour of the caption.
  using Picture = std::function<void(QPainter& painter, const QRectF& area, const QColor& ink)>;

  // Of the button's height, the picture leaves `inset` free above and below.
  PictureButton(const QString& caption, Picture picture, int inset);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Picture picture_;
  int inset_;
};

}  // namespace brontavia
