#include <QWidget>

QWidget* Window();
