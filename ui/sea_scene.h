// A picture of the sea, over which one player comes to the other: the lighthouse waits, the boat sails to it. It
// carries no meaning and goes first where room lacks: lower than it can be drawn, it stays empty.
#pragma once

#include <QWidget>

namespace brontavia {

class SeaScene : public QWidget {
  Q_OBJECT

 public:
  enum class Shows { Lighthouse, LighthouseAndBoat };

  explicit SeaScene(Shows shows);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Shows shows_;
};

}  // namespace brontavia
