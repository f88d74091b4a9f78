#include "ui/shared_icons.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QIcon>
#include <QStyle>

namespace brontavia::test {
namespace {

TEST(SharedIcons, AreMadeOnce) {
  const QString style = QApplication::style()->name();
  ShareStandardIcons();
  const auto made = [](QStyle::StandardPixmap which) { return QApplication::style()->standardIcon(which).cacheKey(); };
  EXPECT_NE(made(QStyle::SP_DialogOkButton), 0);
  EXPECT_EQ(made(QStyle::SP_DialogOkButton), made(QStyle::SP_DialogOkButton));
  EXPECT_NE(made(QStyle::SP_DialogOkButton), made(QStyle::SP_DialogCancelButton));
  QApplication::setStyle(style);
}

}  // namespace
}  // namespace brontavia::test
