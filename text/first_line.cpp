#include "text/first_line.h"

#include <QFile>
#include <string_view>

#include "text/regular_file.h"
#include "text/wire_encoding.h"

namespace brontavia {
namespace {

constexpr qint64 kMostBytes = 1 << 16;  // no line that the program understands is nearly as long

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
