// Outer blanks.
#pragma once

#include <string_view>

namespace brontavia {

// `text` without the blanks (U+0020 alone, no other white space) at its two ends.
std::u16string_view TrimBlanks(std::u16string_view text);

}  // namespace brontavia
