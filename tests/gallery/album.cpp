#include "tests/gallery/album.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFont>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "tests/support/waiting.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kSmallest(1, 1);  // what a window makes of it
constexpr QSize kSmallScreen(800, 600);
constexpr QSize kLargeScreen(1920, 1080);
constexpr QSize kOnSheet(600, 450);
constexpr int kColumns = 5;
constexpr int kGap = 12;
constexpr int kCaptionHeight = 24;
constexpr int kFastCompression = 80;  // of 0, the smallest file, to 100, none

// In the middle of the window, under its title.
void PaintOver(QPainter& painter, const QSizeF& window, QWidget& child) {
  QRectF place({}, child.size());
  place.moveCenter(QRectF({}, window).center());
  const qreal title_height = 1.8 * painter.fontMetrics().height();
  QRectF title(place.x(), place.y() - title_height, place.width(), title_height);
  if (qobject_cast<QMenu*>(&child) == nullptr) {
    painter.fillRect(title, Qt::darkGray);
    painter.setPen(Qt::white);
    painter.drawText(title.adjusted(kGap, 0, 0, 0), Qt::AlignVCenter, child.windowTitle());
  } else {
    title.setHeight(0);
  }
  painter.drawPixmap(place.topLeft(), child.grab());
  painter.setPen(Qt::darkGray);
  painter.drawRect(place.united(title));
}

void Save(const QImage& image, const QString& path) {
  EXPECT_TRUE(image.save(path, "PNG", kFastCompression)) << path.toStdString();
}

}  // namespace

Album::Album(const QString& folder, QString look) : folder_(folder), look_(std::move(look)) {}

void Album::Take(QWidget& window, const QString& moment) {
  OnGui([&] {
    const QSize first = first_sizes_.try_emplace(window.objectName(), window.size()).first->second;
    const QString name = window.objectName() + u'-' + moment;
    TakeAs(window, name, u"smallest"_s, kSmallest);
    TakeAs(window, name, u"800x600"_s, kSmallScreen);
    TakeAs(window, name, u"1920x1080"_s, kLargeScreen);
    TakeAs(window, name, u"default"_s, first);
  });
}

void Album::TakeAs(QWidget& window, const QString& name, const QString& size_name, QSize size) {
  window.activateWindow();
  window.resize(size);
  QCoreApplication::processEvents();
  QPixmap picture = window.grab();
  {
    QPainter painter(&picture);
    painter.setFont(window.font());
    for (QWidget* child : window.findChildren<QWidget*>()) {
      if (child->isWindow() && child->isVisible()) PaintOver(painter, window.size(), *child);
    }
  }
  QImage image = picture.toImage();
  const QString directory = look_ + u'-' + size_name;
  EXPECT_TRUE(folder_.mkpath(directory));
  Save(image, folder_.filePath(directory + u'/' + name + u".png"));
  image.setDevicePixelRatio(1);
  const bool large = image.width() > kOnSheet.width() || image.height() > kOnSheet.height();
  by_size_[size_name].push_back(
      {.Caption = u"%1   %2 × %3"_s.arg(name).arg(window.width()).arg(window.height()),
       .Small = large ? image.scaled(kOnSheet, Qt::KeepAspectRatio, Qt::SmoothTransformation) : image});
}

void Album::WriteSheets() const {
  for (const auto& [size_name, pictures] : by_size_) {
    int row_height = 0;
    for (const Picture& picture : pictures) row_height = std::max(row_height, picture.Small.height());
    row_height += kCaptionHeight + kGap;
    const int rows = (static_cast<int>(pictures.size()) + kColumns - 1) / kColumns;
    QImage sheet(kColumns * (kOnSheet.width() + kGap) + kGap, rows * row_height + kGap, QImage::Format_RGB32);
    sheet.fill(Qt::gray);
    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(kCaptionHeight * 2 / 3);
    painter.setFont(font);
    int number = 0;
    for (const Picture& picture : pictures) {
      const QPoint place(kGap + number % kColumns * (kOnSheet.width() + kGap), kGap + number / kColumns * row_height);
      painter.drawImage(place, picture.Small);
      painter.drawText(QRect(place.x(), place.y() + picture.Small.height(), kOnSheet.width(), kCaptionHeight),
                       Qt::AlignVCenter, picture.Caption);
      ++number;
    }
    painter.end();
    Save(sheet, folder_.filePath(look_ + u'-' + size_name + u".png"));
  }
}

}  // namespace brontavia::test
