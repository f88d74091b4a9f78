// What the program owes the system that it runs on. Each system has a file of its own for it.
#pragma once

namespace brontavia {

// Once, when there is an application object and no window yet.
void AdaptToSystem();

}  // namespace brontavia
