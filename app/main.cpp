#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include "app/window_owner.h"
#include "ui/board_accessible.h"

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QTranslator standard_buttons;  // in Spanish like everything else, whatever the system's language
  if (standard_buttons.load(QStringLiteral("qtbase_es"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(&standard_buttons);
  }
  brontavia::InstallAccessibleFactory();
  brontavia::WindowOwner owner(QApplication::applicationDirPath());
  owner.ShowStart();
  return QApplication::exec();
}
