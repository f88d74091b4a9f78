#include "text/first_line.h"

#include <QFile>
#include <string_view>

#include "text/wire_encoding.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <QFileInfo>
#endif

namespace brontavia {
namespace {

constexpr qint64 kMostBytes = 1 << 16;  // no line that the program understands is nearly as long

#ifdef Q_OS_UNIX
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
#else
bool OpenRegular(QFile& file) { return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly); }
#endif

}  // namespace

std::optional<QString> ReadFirstLine(const QString& path) {
  QFile file(path);
  if (!OpenRegular(file)) return std::nullopt;
  QByteArray bytes(kMostBytes, Qt::Uninitialized);
  const qint64 read = file.read(bytes.data(), kMostBytes);
  if (read < 0) return std::nullopt;
  const std::string_view text(bytes.data(), static_cast<std::size_t>(read));
  return FromWire(text.substr(0, text.find_first_of("\r\n")));
}

}  // namespace brontavia
