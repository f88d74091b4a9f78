#include "text/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brontavia {

// What is open is asked for its kind, not the path, under which something else may stand a moment later. O_NONBLOCK,
// because opening a pipe waits for its writer.
bool OpenRegular(QFile& file) {
  const int descriptor = open(QFile::encodeName(file.fileName()), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (descriptor < 0) return false;
  struct stat status {};
  const bool regular = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  if (regular && file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) return true;
  close(descriptor);
  return false;
}

}  // namespace brontavia
