// What guides the player who waits for the other: what to do, and under which addresses the other finds this computer.
#pragma once

#include <array>

#include "seams/connection.h"
#include "ui/guide_frame.h"

class QLabel;
class QPushButton;

namespace brontavia {

class AddressRow;
class GuideBox;
class KeyLine;
class OneLineLabel;
class SeaScene;

class ServerFrame : public GuideFrame {
  Q_OBJECT

 public:
  // Asks the connection for the addresses whenever the frame shows and whenever its window comes to the front.
  explicit ServerFrame(const Connection& connection);

  void SetPort(std::int32_t port);
  [[nodiscard]] QString Guidance() const override;

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Measures;
  class Plate;
  static constexpr int kMostRows = 4;

  void Refresh();
  // The addresses that have no room, and after the last of them the first again.
  void ShowMore();
  void ShowAddresses();
  void Arrange();
  [[nodiscard]] int RowHeight(const Measures& measures) const;
  [[nodiscard]] int PortHeight(const Measures& measures) const;
  [[nodiscard]] int HeadingHeight() const;
  // Of everything but the picture.
  [[nodiscard]] int NeededHeight(const Measures& measures, int rows) const;

  const Connection& connection_;
  QList<OwnAddress> addresses_;
  qsizetype first_shown_ = 0;
  int rows_shown_ = 1;
  GuideBox* instructions_;
  OneLineLabel* heading_;
  OneLineLabel* advice_;
  QPushButton* more_;
  Plate* addresses_plate_;
  std::array<AddressRow*, kMostRows> rows_{};
  OneLineLabel* no_network_;
  Plate* port_plate_;
  OneLineLabel* port_;
  QLabel* note_;
  SeaScene* scene_;
  KeyLine* keys_;
};

}  // namespace brontavia
