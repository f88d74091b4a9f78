#include <QColor>

QColor Colour();
