// What guides the player who connects: the two ways to do it, and what to do before.
#pragma once

#include "ui/guide_frame.h"

class QPushButton;

namespace brontavia {

class GuideBox;
class KeyLine;
class SeaScene;

class ClientFrame : public GuideFrame {
  Q_OBJECT

 public:
  explicit ClientFrame(const QString& instructions);

  [[nodiscard]] QString Guidance() const override;

 signals:
  void CBConLocalClicked();
  void CbConectarClicked();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QPushButton* connect_here_;
  QPushButton* connect_there_;
  GuideBox* instructions_;
  SeaScene* scene_;
  KeyLine* keys_;
};

}  // namespace brontavia
