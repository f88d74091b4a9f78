#include "ui/full_screen.h"

#include <QShortcut>
#include <QWidget>

namespace brontavia {

void LetF11FillTheScreen(QWidget& window) {
  auto* shortcut = new QShortcut(Qt::Key_F11, &window);
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, &window,
                   [&window] { window.setWindowState(window.windowState() ^ Qt::WindowFullScreen); });
}

}  // namespace brontavia
