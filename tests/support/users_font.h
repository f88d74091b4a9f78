// A size of the user's own in which everything is written.
#pragma once

#include <QApplication>
#include <QFont>

namespace brontavia::test {

// The font of the application for as long as this lives.
class UsersFont {
 public:
  explicit UsersFont(int pixels) {
    QFont font = before_;
    font.setPixelSize(pixels);
    QApplication::setFont(font);
  }
  Q_DISABLE_COPY_MOVE(UsersFont)
  ~UsersFont() { QApplication::setFont(before_); }

 private:
  QFont before_ = QApplication::font();
};

}  // namespace brontavia::test
