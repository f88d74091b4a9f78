#include <QTcpSocket>

QTcpSocket* Socket();
