#include "app/configuration.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "net/process_values.h"
#include "text/qt_text.h"
#include "text/rounding.h"
#include "text/wire_encoding.h"

namespace brontavia {
namespace {

// No port needs more; a longer line is read this far.
constexpr qint64 kLongestLine = 1 << 16;

// Up to the first CR or LF. A file that cannot be opened or read has an empty first line.
QString FirstLine(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray bytes = file.read(kLongestLine);
  const auto* const end = std::find_if(bytes.begin(), bytes.end(), [](char c) { return c == '\r' || c == '\n'; });
  return FromWire(bytes.left(end - bytes.begin()));
}

}  // namespace

std::int32_t ReadConnectionPort(const QString& directory) {
  const QString path = QDir(directory).filePath(QStringLiteral("Brontavia.ini"));
  if (!QFileInfo(path).isFile()) return kDefaultPort;
  return RoundHalfEven<std::int32_t>(Val(FirstLine(path)));
}

}  // namespace brontavia
