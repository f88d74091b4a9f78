// The first line of a file: all that the program ever reads of one.
#pragma once

#include <QString>
#include <optional>

namespace brontavia {

// The first line of the Windows-1252 file at `path`, up to its first CR or LF and at most 65,536 characters; NULs are
// characters like others. Nothing when the file cannot be opened or read, or is no regular file: a folder, and also a
// pipe, a device or a socket, none of which is waited for. Links are followed.
std::optional<QString> ReadFirstLine(const QString& path);

}  // namespace brontavia
