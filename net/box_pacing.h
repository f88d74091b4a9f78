// Keeps a peer from keeping a window shut under boxes: a window that a modal box blocks cannot be closed.
#pragma once

namespace brontavia {

// After a few boxes in a row that the peer set off, with no action of the user's between them, the next waits until the
// window has been free of boxes for a while.
class BoxPacing {
 public:
  static constexpr int kMostInARow = 3;

  // Whether a box of the peer's may open now.
  [[nodiscard]] bool MayOpen() const { return in_a_row_ < kMostInARow; }

  // A box of the peer's opens, having waited until it might.
  void Opens() { ++in_a_row_; }

  // The window has been free of boxes for a while.
  void Rested() { in_a_row_ = 0; }

  // The user has done something of his own: in the window, or by typing an answer. To close a box is no such thing.
  void UserActed() { in_a_row_ = 0; }

 private:
  int in_a_row_ = 0;
};

}  // namespace brontavia
