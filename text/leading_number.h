// The leading-number rule: how every number that a person typed, that stands in a file or that came over the wire
// is read.
#pragma once

#include <string_view>

namespace brontavia {

// Value of the number that `text` begins with.
//
// Blanks, tabs and line feeds are skipped wherever they stand, between digits too: "4 0 0" is 400. A sign, a decimal
// point, an exponent ("1.5e3") and the prefixes "&H" (hexadecimal) and "&O" (octal) are understood. Reading stops at
// the first character that cannot continue the number; an exponent without digits is not part of it. Returns 0 when
// the text begins with no number. A magnitude that a double cannot hold comes back as infinity.
double Val(std::u16string_view text);

}  // namespace brontavia
