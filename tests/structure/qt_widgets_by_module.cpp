#include <QtWidgets/QWidget>

QWidget* Window();
