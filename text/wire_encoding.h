// One byte a character: texts on the wire and in position files are Windows-1252, so that cutting a text by position
// and a read that ends anywhere are both harmless.
#pragma once

#include <QByteArray>
#include <QString>

namespace brontavia {

// `text` as Windows-1252. A character outside it becomes "?".
QByteArray ToWire(QStringView text);

// The text of Windows-1252 `bytes`, exactly one character a byte. The five bytes that Windows-1252 leaves open are
// read as the control characters of the same number.
QString FromWire(QByteArrayView bytes);

}  // namespace brontavia
