// From a read number to an integer.
#pragma once

#include <cmath>
#include <limits>

namespace brontavia {

// Nearest integer to `value`, halves going to the even neighbour (2000.5 is 2000, 2001.5 is 2002). What lies beyond
// Integer's range, infinities included, becomes its nearest bound; a value that is no number becomes 0.
template <typename Integer>
Integer RoundHalfEven(double value) {
  using Limits = std::numeric_limits<Integer>;
  if (std::isnan(value)) return 0;
  const double floor = std::floor(value);
  const double fraction = value - floor;
  double rounded = fraction < 0.5 ? floor : floor + 1;
  if (fraction == 0.5) rounded = std::fmod(floor, 2) == 0 ? floor : floor + 1;
  if (rounded <= static_cast<double>(Limits::min())) return Limits::min();
  if (rounded >= static_cast<double>(Limits::max())) return Limits::max();
  return static_cast<Integer>(rounded);
}

}  // namespace brontavia
