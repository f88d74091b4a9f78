// What Qt does not know by itself of the program's accessibility.
#pragma once

namespace brontavia {

// Teaches Qt the interfaces of boards, announcements and strips, and which events are not passed on, to the platform or
// to an update handler that was installed before. Once, after the application object has been made.
void InstallAccessibility();

}  // namespace brontavia
