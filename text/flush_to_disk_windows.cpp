#include <io.h>

#include <QFileDevice>
#include <cerrno>
#include <cstring>

#include "text/flush_to_disk.h"

namespace brontavia {

std::optional<QString> FlushToDisk(const QFileDevice& file) {
  if (_commit(file.handle()) == 0) return std::nullopt;
  return QString::fromLocal8Bit(std::strerror(errno));
}

}  // namespace brontavia
