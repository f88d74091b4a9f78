#include "net/own_addresses.h"

#include <algorithm>
#include <array>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// To the system these are cables, but their other ends are containers and simulated machines on this computer.
bool LeadsIntoThisComputer(const QString& name) {
  static constexpr std::array kPrefixes{"br-"_L1,     "docker"_L1, "lxc"_L1,   "lxdbr"_L1,
                                        "vboxnet"_L1, "veth"_L1,   "virbr"_L1, "vmnet"_L1};
  return std::ranges::any_of(kPrefixes, [&](QLatin1StringView prefix) { return name.startsWith(prefix); });
}

bool IsIPv4(const QHostAddress& address) { return address.protocol() == QAbstractSocket::IPv4Protocol; }

// Whether the address belongs to this computer alone in the whole Internet.
bool IsPublicIPv4(const QHostAddress& address) {
  static const std::array kShared{
      QHostAddress::parseSubnet(u"10.0.0.0/8"_s), QHostAddress::parseSubnet(u"172.16.0.0/12"_s),
      QHostAddress::parseSubnet(u"192.168.0.0/16"_s), QHostAddress::parseSubnet(u"100.64.0.0/10"_s)};
  return std::ranges::none_of(kShared, [&](const auto& subnet) { return address.isInSubnet(subnet); });
}

bool IsReachable(const QHostAddress& address) {
  if (IsIPv4(address)) return !address.isLoopback() && !address.isLinkLocal();
  return address.isGlobal() && !address.isUniqueLocalUnicast() && !address.isSiteLocal();
}

AddressKind KindOf(const QHostAddress& address, QNetworkInterface::InterfaceType type) {
  if (!IsIPv4(address)) return AddressKind::InternetIPv6;
  if (IsPublicIPv4(address)) return AddressKind::InternetIPv4;
  if (type == QNetworkInterface::Ethernet) return AddressKind::Cable;
  if (type == QNetworkInterface::Wifi) return AddressKind::Radio;
  return AddressKind::VirtualNetwork;
}

}  // namespace

QList<InterfaceAddresses> RunningInterfaces() {
  QList<InterfaceAddresses> running;
  const QList<QNetworkInterface> all = QNetworkInterface::allInterfaces();
  for (const QNetworkInterface& each : all) {
    if (!each.flags().testFlags(QNetworkInterface::IsUp | QNetworkInterface::IsRunning)) continue;
    InterfaceAddresses found{.Name = each.name(), .Type = each.type()};
    const QList<QNetworkAddressEntry> entries = each.addressEntries();
    for (const QNetworkAddressEntry& entry : entries) found.Addresses << entry.ip();
    running << found;
  }
  return running;
}

QList<OwnAddress> ReachableAddresses(const QList<InterfaceAddresses>& interfaces) {
  QList<OwnAddress> local;
  QList<OwnAddress> other;
  QList<OwnAddress> ipv6;
  for (const InterfaceAddresses& each : interfaces) {
    if (LeadsIntoThisComputer(each.Name)) continue;
    const bool is_local = each.Type == QNetworkInterface::Ethernet || each.Type == QNetworkInterface::Wifi;
    for (const QHostAddress& address : each.Addresses) {
      if (!IsReachable(address)) continue;
      const OwnAddress found{.Address = address.toString(), .Kind = KindOf(address, each.Type)};
      if (!IsIPv4(address)) {
        ipv6.append(found);
      } else if (is_local) {
        local.append(found);
      } else {
        other.append(found);
      }
    }
  }
  return local + other + ipv6;
}

}  // namespace brontavia
