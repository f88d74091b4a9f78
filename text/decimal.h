// Whole numbers as texts.
#pragma once

#include <cstdint>
#include <string>

namespace brontavia {

// `value` in decimal digits, without padding; a sign only when it is negative.
inline std::u16string Decimal(std::int64_t value) {
  const std::string digits = std::to_string(value);
  return {digits.begin(), digits.end()};
}

}  // namespace brontavia
