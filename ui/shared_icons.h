// The toolkit's own icons, such as those on the buttons of boxes.
#pragma once

namespace brontavia {

// Lets the toolkit, in the style that it has, make each of its icons once, and not anew for each box: it keeps a
// picture of every icon that it has painted, up to 10 MiB of them, and the names of more until the program has rested.
// Once, after the application object has been made and before the first window.
void ShareStandardIcons();

}  // namespace brontavia
