#include <QtCore/QString>

QString Text();
