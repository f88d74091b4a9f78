#include "text/flush_to_disk.h"

#include <QFileDevice>
#include <cerrno>

#ifdef Q_OS_UNIX
#include <unistd.h>
#else
#include <io.h>
#endif

namespace brontavia {
namespace {

#ifdef Q_OS_UNIX
int Flush(int descriptor) { return fsync(descriptor); }
#else
int Flush(int descriptor) { return _commit(descriptor); }
#endif

}  // namespace

std::optional<QString> FlushToDisk(const QFileDevice& file) {
  if (Flush(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS) return std::nullopt;
  return qt_error_string(errno);
}

}  // namespace brontavia
