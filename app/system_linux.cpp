#include "app/system.h"

namespace brontavia {

// The desktop's theme has told the toolkit everything, and standard error is there.
void AdaptToSystem() {}

}  // namespace brontavia
