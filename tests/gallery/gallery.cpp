// Photographs every window in every phase of its game, and puts the pictures into contact sheets; scripts/gallery.sh
// does so for all looks. Needs no display.
//
// usage: gallery FOLDER light|dark POINTS
// POINTS is the size of the user's font. QT_SCALE_FACTOR chooses the scale.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <cstdio>
#include <cstdlib>

#include "tests/gallery/album.h"
#include "tests/gallery/scenes.h"
#include "ui/accessibility.h"

namespace {

using namespace Qt::StringLiterals;

// The ground, boxes and texts that a desktop of this kind has; all edges between follow from its colour of buttons.
QPalette MakePalette(bool dark) {
  const QColor text(dark ? 0xE9EAEC : 0x1D1F23);
  QPalette palette(QColor(dark ? 0x3A3D41 : 0xEFEFEF), QColor(dark ? 0x2A2C2F : 0xEFEFEF));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Active, role, text);
    palette.setColor(QPalette::Inactive, role, text);
  }
  palette.setColor(QPalette::Base, QColor(dark ? 0x1E2022 : 0xFFFFFF));
  palette.setColor(QPalette::Highlight, QColor(0x2F6FA8));
  palette.setColor(QPalette::HighlightedText, QColor(0xFFFFFF));
  return palette;
}

}  // namespace

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) {
    std::fputs("usage: gallery FOLDER light|dark POINTS\n", stderr);
    return EXIT_FAILURE;
  }
  const QString& palette = arguments[2];
  const QString& points = arguments[3];
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setPalette(MakePalette(palette == u"dark"));
  QApplication::setFont(QFont(u"DejaVu Sans"_s, points.toInt()));
  brontavia::InstallAccessibility();

  brontavia::test::Album album(arguments[1], u"%1-%2x-%3pt"_s.arg(palette).arg(qApp->devicePixelRatio()).arg(points));
  brontavia::test::TakeWindowsBeforeTheGame(album);
  brontavia::test::TakeThreeInRow(album);
  brontavia::test::TakeNavalBattle(album);
  brontavia::test::TakeStrategy(album);
  brontavia::test::TakeMiniStrategy(album);
  brontavia::test::TakeChess(album);
  album.WriteSheets();
  return testing::UnitTest::GetInstance()->Failed() ? EXIT_FAILURE : EXIT_SUCCESS;
}
