// Says over a board whose it is: the sign of its owner and a word.
#pragma once

#include <QLabel>

#include "seams/scoreboard.h"

namespace brontavia {

class BoardCaption : public QLabel {
  Q_OBJECT

 public:
  explicit BoardCaption(QWidget* parent = nullptr);

  void Show(const QString& caption, PlayerSign owner);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  PlayerSign owner_ = PlayerSign::Pennant;
};

}  // namespace brontavia
