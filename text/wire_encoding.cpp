#include "text/wire_encoding.h"

#include <QList>
#include <QStringConverter>

namespace brontavia {
namespace {

constexpr const char* kEncoding = "windows-1252";
constexpr char kUnwritable = '\x1a';  // what the encoder writes for a character outside the encoding

}  // namespace

QByteArray ToWire(QStringView text) {
  const QList<uint> code_points = text.toUcs4();
  QByteArray bytes = QStringEncoder(kEncoding)(
      QString::fromUcs4(reinterpret_cast<const char32_t*>(code_points.data()), code_points.size()));
  Q_ASSERT(bytes.size() == code_points.size());
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == kUnwritable && code_points[i] != static_cast<uint>(kUnwritable)) bytes[i] = '?';
  }
  return bytes;
}

QString FromWire(QByteArrayView bytes) { return QStringDecoder(kEncoding)(bytes); }

}  // namespace brontavia
