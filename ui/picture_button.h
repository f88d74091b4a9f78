// A large button with a picture beside its caption.
#pragma once

#include <QPushButton>
#include <functional>

#include "ui/look.h"

namespace brontavia {

class PictureButton : public QPushButton {
  Q_OBJECT

 public:
  // Paints the picture into a square.
  using Picture = std::function<void(QPainter& painter, const QRectF& area, const look::Colours& colours)>;

  // Above and below the picture, `inset` of the button's height stays free.
  PictureButton(const QString& caption, Picture picture, qreal inset);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Picture picture_;
  qreal inset_;
};

}  // namespace brontavia
