#include "app/configuration.h"

#include <QDir>
#include <QFileInfo>

#include "net/process_values.h"
#include "text/first_line.h"
#include "text/qt_text.h"
#include "text/rounding.h"

namespace brontavia {

std::int32_t ReadConnectionPort(const QString& directory) {
  const QString path = QDir(directory).filePath(QStringLiteral("Brontavia.ini"));
  if (!QFileInfo(path).isFile()) return kDefaultPort;
  return RoundHalfEven<std::int32_t>(Val(ReadFirstLine(path).value_or(QString())));
}

}  // namespace brontavia
