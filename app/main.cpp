#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "app/fonts_ahead.h"
#include "app/system.h"
#include "app/window_owner.h"
#include "ui/accessibility.h"
#include "ui/look.h"
#include "ui/shared_icons.h"

namespace {

// Sets the icon of all windows when the first has been painted, so that nothing on screen waits for its pictures.
class IconSetter : public QObject {
 public:
  IconSetter() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      qApp->removeEventFilter(this);
      QTimer::singleShot(0, this, [] { QApplication::setWindowIcon(brontavia::look::ProgramIcon()); });
    }
    return false;
  }
};

// From the first window to the last; returns the exit code.
int RunWindows(int argc, char** argv) {
  std::optional<QApplication> application;
  brontavia::WhileFontsAreRead([&] { application.emplace(argc, argv); });
  brontavia::AdaptToSystem();
  QApplication::setQuitOnLastWindowClosed(false);
  brontavia::ShareStandardIcons();
  IconSetter icon_setter;
  brontavia::InstallAccessibility();
  brontavia::WindowOwner owner(QApplication::applicationDirPath());
  owner.ShowStart();
  const int code = QApplication::exec();
  // A name server may take half a minute to answer a client who has long closed the window, and the toolkit waits for
  // its lookups when the application object goes.
  QObject::disconnect(&*application, &QObject::destroyed, nullptr, nullptr);
  return code;
}

}  // namespace

int main(int argc, char* argv[]) {
  const int code = RunWindows(argc, argv);
  // Past the toolkit's global objects, which would wait as well.
  std::fflush(stdout);
  std::_Exit(code);
}
