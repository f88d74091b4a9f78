// The addresses under which another computer may reach this one.
#pragma once

#include <QHostAddress>
#include <QList>
#include <QNetworkInterface>
#include <QString>

#include "seams/connection.h"

namespace brontavia {

// What has to be known of one of this computer's network interfaces.
struct InterfaceAddresses {
  QString Name;  // "enp3s0"
  QNetworkInterface::InterfaceType Type = QNetworkInterface::Unknown;
  QList<QHostAddress> Addresses;
};

// Those that are up and running, in the system's order.
QList<InterfaceAddresses> RunningInterfaces();

// The most useful ones first: IPv4 of cable and radio, other IPv4, IPv6 that is global. Without addresses that reach no
// further than this computer, its cable, or the machines that it simulates.
QList<OwnAddress> ReachableAddresses(const QList<InterfaceAddresses>& interfaces);

}  // namespace brontavia
