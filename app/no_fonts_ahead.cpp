#include "app/fonts_ahead.h"

namespace brontavia {

void WhileFontsAreRead(const std::function<void()>& work) { work(); }

}  // namespace brontavia
