// Pictures of windows at several sizes, and contact sheets of them.
#pragma once

#include <QDir>
#include <QImage>
#include <QSize>
#include <QString>
#include <map>
#include <vector>

class QWidget;

namespace brontavia::test {

class Album {
 public:
  // Pictures go to `folder`/<look>-<size>/, sheets to `folder`. Both are made where they are missing.
  Album(const QString& folder, QString look);

  // The window at each size, as <objectName>-<moment>.png, with the boxes and menus over it that it has open. Leaves it
  // as large as it was the first time. From any thread.
  void Take(QWidget& window, const QString& moment);

  // One for each size: <look>-<size>.png.
  void WriteSheets() const;

 private:
  struct Picture {
    QString Caption;
    QImage Small;
  };

  void TakeAs(QWidget& window, const QString& name, const QString& size_name, QSize size);

  QDir folder_;
  QString look_;
  std::map<QString, QSize> first_sizes_;             // of windows, by objectName
  std::map<QString, std::vector<Picture>> by_size_;  // in the order in which they were taken
};

}  // namespace brontavia::test
