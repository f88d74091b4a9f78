#include "text/wire_encoding.h"

#include <QList>
#include <QStringConverter>

namespace brontavia {
namespace {

constexpr const char* kEncoding = "windows-1252";
constexpr char32_t kFirstBeyondAscii = 0x80;
constexpr char kUnwritable = '\x1a';  // what the encoder writes for a character outside the encoding

}  // namespace

QByteArray ToWire(QStringView text) {
  // One character at a time: given a whole text the encoder leaves out what it takes for invisible.
  QStringEncoder encode(kEncoding, QStringConverter::Flag::Stateless);
  QByteArray bytes;
  for (const char32_t code_point : text.toUcs4()) {
    if (code_point < kFirstBeyondAscii) {
      bytes += static_cast<char>(code_point);
      continue;
    }
    const QByteArray written = encode(QString::fromUcs4(&code_point, 1));
    const bool writable = written.size() == 1 && written[0] != kUnwritable;
    bytes += writable ? written[0] : '?';
  }
  return bytes;
}

QString FromWire(QByteArrayView bytes) { return QStringDecoder(kEncoding)(bytes); }

}  // namespace brontavia
