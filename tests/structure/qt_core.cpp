#include <QString>

QString Text();
