#include <QApplication>

#include "app/window_owner.h"
#include "ui/board_accessible.h"

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  brontavia::InstallAccessibleFactory();
  brontavia::WindowOwner owner(QApplication::applicationDirPath());
  owner.ShowStart();
  return QApplication::exec();
}
