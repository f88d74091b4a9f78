// Opening a file without waiting for what is no file. Each system has a file of its own for it.
#pragma once

#include <QFile>

namespace brontavia {

// Opens `file` for reading. False when it cannot be opened or is no regular file.
bool OpenRegular(QFile& file);

}  // namespace brontavia
