// Keeps a peer from keeping a window shut under boxes: a window that a modal box blocks cannot be closed.
#pragma once

#include <chrono>

namespace brontavia {

// After a few boxes in a row that the peer set off, with no action of the user's between them, the next waits until the
// window has been free of boxes for a while. Moments are those of one steady clock.
class BoxPacing {
 public:
  using Moment = std::chrono::milliseconds;

  static constexpr int kMostInARow = 3;
  static constexpr std::chrono::milliseconds kFreeFor{1000};

  explicit BoxPacing(std::chrono::milliseconds free_for) : free_for_(free_for) {}

  // Whether a box of the peer's may open now. `showing`: a box is on screen.
  [[nodiscard]] bool MayOpen(Moment now, bool showing) const {
    return in_a_row_ < kMostInARow || (!showing && now - free_since_ >= free_for_);
  }

  // A box of the peer's opens, having waited until it might.
  void Opens() { in_a_row_ = in_a_row_ < kMostInARow ? in_a_row_ + 1 : 1; }

  // The last box on screen has been answered.
  void BecameFree(Moment now) { free_since_ = now; }

  // The user has done something of his own: in the window, or by typing an answer. To close a box is no such thing.
  void UserActed() { in_a_row_ = 0; }

 private:
  std::chrono::milliseconds free_for_;
  int in_a_row_ = 0;
  Moment free_since_{};
};

}  // namespace brontavia
