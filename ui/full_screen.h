// F11: the whole screen for a window, and back.
#pragma once

class QWidget;

namespace brontavia {

// `window` is a top-level window.
void LetF11FillTheScreen(QWidget& window);

}  // namespace brontavia
