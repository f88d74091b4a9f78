#include "ui/sound_server.h"

namespace brontavia {

// The system is its own sound server, and silent where there is no device.
bool SoundServerAccepts() { return true; }

}  // namespace brontavia
