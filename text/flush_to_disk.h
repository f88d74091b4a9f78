// A file's content on the disk, not only handed to the system.
#pragma once

#include <QString>
#include <optional>

class QFileDevice;

namespace brontavia {

// Waits until what has been written to an open file is on its disk: a full disk, a quota or a lost network may be told
// no sooner. The system's reason when it is not; nothing where the file system has no such wait.
std::optional<QString> FlushToDisk(const QFileDevice& file);

}  // namespace brontavia
