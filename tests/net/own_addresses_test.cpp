#include "net/own_addresses.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "net/tcp_connection.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

InterfaceAddresses Interface(const QString& name, QNetworkInterface::InterfaceType type, const QStringList& addresses) {
  InterfaceAddresses made{.Name = name, .Type = type};
  for (const QString& address : addresses) made.Addresses << QHostAddress(address);
  return made;
}

QStringList AddressesOf(const QList<OwnAddress>& found) {
  QStringList addresses;
  for (const OwnAddress& each : found) addresses << each.Address;
  return addresses;
}

TEST(OwnAddresses, ComeWithTheMostUsefulFirst) {
  const QList<InterfaceAddresses> interfaces{
      Interface(u"lo"_s, QNetworkInterface::Loopback, {u"127.0.0.1"_s, u"::1"_s}),
      Interface(u"tun0"_s, QNetworkInterface::Virtual, {u"10.8.0.6"_s, u"fe80::1%tun0"_s}),
      Interface(u"enp3s0"_s, QNetworkInterface::Ethernet,
                {u"2a02:8109::71d2"_s, u"192.168.1.37"_s, u"fe80::2%enp3s0"_s}),
      Interface(u"wlp2s0"_s, QNetworkInterface::Wifi, {u"172.31.0.9"_s})};
  EXPECT_EQ(ReachableAddresses(interfaces), (QList<OwnAddress>{{u"192.168.1.37"_s, AddressKind::Cable},
                                                               {u"172.31.0.9"_s, AddressKind::Radio},
                                                               {u"10.8.0.6"_s, AddressKind::VirtualNetwork},
                                                               {u"2a02:8109::71d2"_s, AddressKind::InternetIPv6}}));
}

TEST(OwnAddresses, LeaveOutWhatNobodyElseReaches) {
  for (const QString& address :
       {u"127.0.0.1"_s, u"127.1.2.3"_s, u"169.254.7.7"_s, u"::1"_s, u"fe80::1"_s, u"fd12::1"_s, u"fec0::1"_s}) {
    const auto reachable = ReachableAddresses({Interface(u"enp3s0"_s, QNetworkInterface::Ethernet, {address})});
    EXPECT_EQ(AddressesOf(reachable), QStringList()) << address.toStdString();
  }
  EXPECT_EQ(ReachableAddresses({}), QList<OwnAddress>());
}

TEST(OwnAddresses, LeaveOutBridgesToContainersAndSimulatedMachines) {
  for (const QString& name : {u"docker0"_s, u"br-4f1c"_s, u"virbr0"_s, u"veth77"_s, u"vboxnet0"_s}) {
    const auto reachable = ReachableAddresses({Interface(name, QNetworkInterface::Ethernet, {u"172.17.0.1"_s})});
    EXPECT_EQ(AddressesOf(reachable), QStringList()) << name.toStdString();
  }
  EXPECT_EQ(AddressesOf(ReachableAddresses({Interface(u"br0"_s, QNetworkInterface::Ethernet, {u"192.168.1.2"_s})})),
            QStringList(u"192.168.1.2"_s))
      << "a bridge that the cable is part of";
}

TEST(OwnAddresses, TellAnAddressOfTheWholeInternetFromOneOfALocalNetwork) {
  const auto kind_of = [](const QString& address) {
    return ReachableAddresses({Interface(u"eth0"_s, QNetworkInterface::Ethernet, {address})}).first().Kind;
  };
  for (const QString& shared : {u"10.0.0.1"_s, u"172.16.0.1"_s, u"172.31.255.1"_s, u"192.168.0.1"_s, u"100.64.0.1"_s}) {
    EXPECT_EQ(kind_of(shared), AddressKind::Cable) << shared.toStdString();
  }
  for (const QString& own : {u"88.12.7.7"_s, u"172.32.0.1"_s, u"192.169.0.1"_s, u"100.128.0.1"_s}) {
    EXPECT_EQ(kind_of(own), AddressKind::InternetIPv4) << own.toStdString();
  }
}

// Whatever this computer's network is: none of the addresses leads back to itself.
TEST(OwnAddresses, OfARealConnectionAreReachableOnes) {
  const QList<OwnAddress> found = TcpConnection().OwnAddresses();
  EXPECT_EQ(found, ReachableAddresses(RunningInterfaces()));
  EXPECT_TRUE(std::ranges::none_of(found, [](const OwnAddress& each) {
    return QHostAddress(each.Address).isLoopback() || QHostAddress(each.Address).isLinkLocal();
  }));
  const QList<InterfaceAddresses> running = RunningInterfaces();
  EXPECT_TRUE(std::ranges::any_of(running, [](const InterfaceAddresses& each) {
    return each.Addresses.contains(QHostAddress(QHostAddress::LocalHost));
  })) << "the loopback interface runs everywhere";
}

}  // namespace
}  // namespace brontavia::test
