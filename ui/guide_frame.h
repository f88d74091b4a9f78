// A group with a title and no border, which fills its window.
#pragma once

#include <QGroupBox>

namespace brontavia {

class GuideFrame : public QGroupBox {
  Q_OBJECT

 public:
  GuideFrame(const QString& title, const QString& name);

  // What is told to a person who comes to the frame without seeing it.
  [[nodiscard]] virtual QString Guidance() const = 0;

  // Less would leave no room for anything to read.
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace brontavia
