#include <unistd.h>

#include <QFileDevice>
#include <cerrno>

#include "text/flush_to_disk.h"

namespace brontavia {

std::optional<QString> FlushToDisk(const QFileDevice& file) {
  if (fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS) return std::nullopt;
  return qt_error_string(errno);
}

}  // namespace brontavia
