// "Brontavia.ini", the one file that the program reads at start: its first line is the TCP port.
#pragma once

#include <QString>
#include <cstdint>

namespace brontavia {

// The port that "Brontavia.ini" in `directory` names. Without such a file kDefaultPort. A file that cannot be read, is
// empty or does not begin with a number gives 0. The number may be any: its leading digits count, halves go to the
// even neighbour, and what lies beyond 32 bits becomes the nearest bound.
std::int32_t ReadConnectionPort(const QString& directory);

}  // namespace brontavia
