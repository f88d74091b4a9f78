// The system's fonts, made ready beside other work.
#pragma once

#include <functional>

namespace brontavia {

// Runs `work` while another thread reads what fontconfig wants to know before the first text can be measured; that
// thread has ended when this returns or throws. Where fontconfig is not the font system, `work` alone runs.
void WhileFontsAreRead(const std::function<void()>& work);

}  // namespace brontavia
