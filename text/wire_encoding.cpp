#include "text/wire_encoding.h"

#include <QList>
#include <algorithm>
#include <array>

namespace brontavia {
namespace {

// The characters of the bytes 80 to 9F; every other byte is the character of the same number. A table of our own,
// because Qt knows Windows-1252 only where it was built with ICU.
constexpr char16_t kFirstOfTable = 0x80;
constexpr std::array<char16_t, 32> kTable{
    0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008d, 0x017d, 0x008f, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178,
};

bool InTable(char32_t number) { return number >= kFirstOfTable && number < kFirstOfTable + kTable.size(); }

char ByteOf(char32_t code_point) {
  constexpr char32_t kLargestByte = 0xff;
  if (code_point <= kLargestByte && !InTable(code_point)) return static_cast<char>(code_point);
  const auto* const found = std::find(kTable.begin(), kTable.end(), code_point);
  return found == kTable.end() ? '?' : static_cast<char>(kFirstOfTable + (found - kTable.begin()));
}

QChar CharacterOf(unsigned char byte) { return InTable(byte) ? kTable.at(byte - kFirstOfTable) : char16_t{byte}; }

}  // namespace

QByteArray ToWire(QStringView text) {
  const QList<uint> code_points = text.toUcs4();
  QByteArray bytes(code_points.size(), Qt::Uninitialized);
  std::transform(code_points.begin(), code_points.end(), bytes.begin(), ByteOf);
  return bytes;
}

QString FromWire(QByteArrayView bytes) {
  QString text(bytes.size(), Qt::Uninitialized);
  std::transform(bytes.begin(), bytes.end(), text.begin(), CharacterOf);
  return text;
}

}  // namespace brontavia
