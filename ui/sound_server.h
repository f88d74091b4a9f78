// Whether there is anybody who plays sounds. Each system has a file of its own for it.
#pragma once

namespace brontavia {

// Asked before the module sound_effects is loaded: without a server Qt Multimedia writes to standard error. Does not
// wait.
bool SoundServerAccepts();

}  // namespace brontavia
