// The five game windows, for tests of what holds in each.
#pragma once

#include <array>

#include "net/window_traits.h"

namespace brontavia::test {

inline constexpr std::array kAllWindows{&kFormTER, &kFormBAR, &kFormMES, &kFormEST, &kFormAje};

}  // namespace brontavia::test
