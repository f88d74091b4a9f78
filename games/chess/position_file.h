// Position files as they are written.
#pragma once

#include <QString>
#include <optional>

namespace brontavia {

// Makes `line` and a line break the whole content of the file at `path`, which is made when it does not exist. A
// character outside Windows-1252 becomes "?". A file that cannot be opened for writing is left alone without a word, as
// is what is no regular file. Whatever fails later leaves the old content, and the system's reason comes back.
std::optional<QString> WritePositionFile(const QString& path, const QString& line);

}  // namespace brontavia
