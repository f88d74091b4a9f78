// A window with nothing in it: what Qt alone costs, built and linked like the program. Given a text, the window shows
// it in a label: the least that a window with something to read costs.
#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle(QStringLiteral("empty"));
  window.resize(560, 420);  // as large as the start window
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() > 1) (new QVBoxLayout(&window))->addWidget(new QLabel(arguments[1]));
  window.show();
  return QApplication::exec();
}
