// A group with a title and no border, which fills its window.
#pragma once

#include <QGroupBox>

namespace brontavia {

class GuideFrame : public QGroupBox {
  Q_OBJECT

 public:
  GuideFrame(const QString& title, const QString& name);

  // Less would leave no room for anything to read.
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace brontavia
