// The squares that one piece may go to, without allocating.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "games/coordinate.h"

namespace brontavia {

class TargetList {
 public:
  // A queen in the middle of an empty board; nothing goes to more squares.
  static constexpr std::size_t kCapacity = 27;

  // Throws std::out_of_range when the list is full.
  void Add(Coordinate square) {
    squares_.at(size_) = square;
    ++size_;
  }

  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] const Coordinate* begin() const { return squares_.data(); }
  [[nodiscard]] const Coordinate* end() const { return std::next(begin(), static_cast<std::ptrdiff_t>(size_)); }
  [[nodiscard]] bool Holds(Coordinate square) const { return std::find(begin(), end(), square) != end(); }

 private:
  std::array<Coordinate, kCapacity> squares_;
  std::size_t size_ = 0;
};

}  // namespace brontavia
