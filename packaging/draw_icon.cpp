// Draws an SVG picture as PNG: draw_icon PICTURE SIDE PNG. The installed icons are drawn as the windows' own are.
#include <QCoreApplication>
#include <QImage>
#include <QImageReader>
#include <QTextStream>
#include <cstdlib>

int main(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 4) return EXIT_FAILURE;
  QImageReader reader(arguments[1], "svg");
  const int side = arguments[2].toInt();
  reader.setScaledSize({side, side});
  const QImage image = reader.read();
  if (image.save(arguments[3], "png")) return EXIT_SUCCESS;
  QTextStream(stderr) << arguments[1] << ": " << reader.errorString() << '\n';
  return EXIT_FAILURE;
}
