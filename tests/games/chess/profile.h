// A user's profile with a folder of documents, the one that file dialogs propose.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace brontavia::test {

class Profile {
 public:
  Profile() {
    QDir(directory_.path()).mkdir(QStringLiteral("Mis documentos"));
    qputenv("userProfile", QFile::encodeName(directory_.path()));
  }
  Q_DISABLE_COPY_MOVE(Profile)
  ~Profile() { qunsetenv("userProfile"); }

  [[nodiscard]] QString Folder() const { return directory_.filePath(QStringLiteral("Mis documentos")); }
  [[nodiscard]] QString InFolder(const QString& name) const { return QDir(Folder()).filePath(name); }

 private:
  QTemporaryDir directory_;
};

}  // namespace brontavia::test
