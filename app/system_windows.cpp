#include "app/system.h"

#include <windows.h>

#include <QApplication>
#include <QPalette>
#include <cstdio>

namespace brontavia {
namespace {

// A windowed program has no standard error of its own: unless it was sent to a file, it is the console that the program
// was started from, if any.
void FindStandardError() {
  if (GetStdHandle(STD_ERROR_HANDLE) != nullptr || AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  static_cast<void>(std::freopen("CONOUT$", "w", stderr));
}

// The system's own controls are light ones, whatever the palette.
void DrawDarkControls() {
  const QPalette palette = QApplication::palette();
  if (palette.color(QPalette::Window).lightness() >= palette.color(QPalette::WindowText).lightness()) return;
  QApplication::setStyle(QStringLiteral("Fusion"));
}

}  // namespace

void AdaptToSystem() {
  FindStandardError();
  DrawDarkControls();
}

}  // namespace brontavia
