#include "games/chess/position_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "text/flush_to_disk.h"
#include "text/qt_text.h"
#include "text/wire_encoding.h"

namespace brontavia {
namespace {

// Both ways to write are without a buffer, so that each write tells its own failure: QSaveFile renames although the
// flush inside commit() has failed.
constexpr QIODevice::OpenMode kUnbuffered = QIODevice::Unbuffered;

// The system may take a first part of what does not fit; only the write of the rest names the reason.
bool WriteAll(QFileDevice& file, QByteArrayView content) {
  while (!content.isEmpty()) {
    const qint64 written = file.write(content.data(), content.size());
    if (written <= 0) return false;
    content = content.sliced(written);
  }
  return true;
}

// Writes over the beginning of a file, and cuts off what is `longer`. The cut comes last: until then the new line
// stands before the rest of the old content, and only the first line counts.
std::optional<QString> WriteOver(QFile& file, const QByteArray& content, bool longer) {
  if (!WriteAll(file, content)) return file.errorString();
  if (auto failure = FlushToDisk(file)) return failure;
  if (longer && !file.resize(content.size())) return file.errorString();
  return std::nullopt;
}

// What is written over is put back after a failure, which takes no room that the file did not have.
std::optional<QString> WriteInPlace(const QString& path, const QByteArray& content) {
  QFile file(path);
  if (!file.open(QIODevice::ReadWrite | kUnbuffered)) return std::nullopt;
  const QByteArray before = file.read(content.size());
  if (file.error() != QFileDevice::NoError || !file.seek(0)) return file.errorString();
  const bool longer = before.size() == content.size();
  std::optional<QString> failure = WriteOver(file, content, longer);
  if (failure) {
    if (file.seek(0)) WriteAll(file, before);
    if (!longer) file.resize(before.size());
  }
  return failure;
}

}  // namespace

std::optional<QString> WritePositionFile(const QString& path, const QString& line) {
  const QFileInfo target(path);
  if (target.exists() && !target.isFile()) return std::nullopt;  // a new file would take the place of a device
  const QByteArray content = ToWire(QString(line + kCrLf));
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly | kUnbuffered)) {
    if (!WriteAll(file, content)) return file.errorString();
    if (auto failure = FlushToDisk(file)) return failure;  // commit() would pass over it
    if (file.commit()) return std::nullopt;
  }
  return WriteInPlace(path, content);  // the folder takes no new file, or does not let it take the old one's place
}

}  // namespace brontavia
