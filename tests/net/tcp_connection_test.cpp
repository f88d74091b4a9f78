#include "net/tcp_connection.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

#include <QElapsedTimer>
#include <QTcpSocket>
#include <array>
#include <filesystem>
#include <iterator>
#include <memory>
#include <vector>

#include "tests/support/free_port.h"
#include "tests/support/printers.h"
#include "tests/support/waiting.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// A connection that remembers its events.
struct Side {
  Side() {
    QObject::connect(&Socket, &Connection::ConnectionRequest, &Socket, [this](int request) { Requests << request; });
    QObject::connect(&Socket, &Connection::DataArrival, &Socket, [this] {
      const QString text = Socket.GetData();
      if (!text.isEmpty()) Reads << text;
    });
    QObject::connect(&Socket, &Connection::SendComplete, &Socket, [this] { ++Completed; });
    QObject::connect(&Socket, &Connection::Lost, &Socket, [this] { ++Losses; });
  }

  TcpConnection Socket;
  QList<int> Requests;
  QStringList Reads;
  int Completed = 0;
  int Losses = 0;
};

// What a bare peer does with its socket, behind the back of the toolkit.

int DescriptorOf(const QTcpSocket& peer) { return static_cast<int>(peer.socketDescriptor()); }

void HalfClose(const QTcpSocket& peer) { ASSERT_EQ(shutdown(DescriptorOf(peer), SHUT_WR), 0); }

void Reset(QTcpSocket& peer) {
  const linger at_once{.l_onoff = 1, .l_linger = 0};
  ASSERT_EQ(setsockopt(DescriptorOf(peer), SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once), 0);
  peer.abort();
}

// Reads until nothing more comes; returns how much it was.
qint64 ReadAllThatHasLeft(const QTcpSocket& peer) {
  constexpr int kSilence = 100;  // milliseconds
  pollfd asked{.fd = DescriptorOf(peer), .events = POLLIN, .revents = 0};
  std::vector<char> part(1 << 20);
  qint64 read = 0;
  while (poll(&asked, 1, kSilence) == 1) read += recv(asked.fd, part.data(), part.size(), 0);
  return read;
}

auto OpenDescriptors() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return std::distance(begin(descriptors), end(descriptors));
}

class Tcp : public testing::Test {
 protected:
  void Listen() { ASSERT_EQ(Server.Socket.Listen(Port), std::nullopt); }

  // Connected as far as the system of the listener goes; the listener itself has not looked yet.
  void Knock(QTcpSocket& peer) const {
    peer.connectToHost(u"127.0.0.1"_s, static_cast<quint16>(Port));
    ASSERT_TRUE(peer.waitForConnected(5000));
  }

  void AcceptBare(QTcpSocket& peer) {
    Listen();
    Knock(peer);
    ASSERT_TRUE(Eventually([&] { return !Server.Requests.isEmpty(); }));
    ASSERT_TRUE(Server.Socket.Accept(Server.Requests.last()));
  }

  void Connect() {
    Listen();
    Client.Socket.Connect(u"127.0.0.1"_s, Port);
    ASSERT_TRUE(Eventually([&] { return !Server.Requests.isEmpty(); }));
    ASSERT_TRUE(Server.Socket.Accept(Server.Requests.last()));
    ASSERT_TRUE(Eventually([&] { return Client.Socket.State() == ConnectionState::Connected; }));
  }

  std::int32_t Port = FreePort();
  Side Server;
  Side Client;
};

// ---- Listening ----

TEST_F(Tcp, ListensOnBothAddressFamilies) {
  Listen();
  EXPECT_EQ(Server.Socket.State(), ConnectionState::Listening);
  for (const QString& host : {u"127.0.0.1"_s, u"::1"_s}) {
    QTcpSocket probe;
    probe.connectToHost(host, static_cast<quint16>(Port));
    EXPECT_TRUE(Eventually([&] { return probe.state() == QAbstractSocket::ConnectedState; })) << host.toStdString();
  }
}

TEST_F(Tcp, RefusesPortsThatNoSocketCanHave) {
  for (const std::int32_t port : {0, -1, 65536, 2147483647}) {
    EXPECT_TRUE(Server.Socket.Listen(port).has_value()) << port;
    Client.Socket.Connect(u"127.0.0.1"_s, port);
    EXPECT_EQ(Client.Socket.State(), ConnectionState::Closed) << port;
  }
}

TEST_F(Tcp, TellsWhyAPortCannotBeListenedOn) {
  Listen();
  Side second;
  const auto reason = second.Socket.Listen(Port);
  ASSERT_TRUE(reason.has_value());
  EXPECT_FALSE(reason->isEmpty());
  EXPECT_EQ(second.Socket.State(), ConnectionState::Closed);
}

TEST_F(Tcp, FurtherRequestsWaitUntilTheFirstIsAnswered) {
  Listen();
  QTcpSocket first;
  QTcpSocket second;
  for (QTcpSocket* socket : {&first, &second}) {
    socket->connectToHost(u"127.0.0.1"_s, static_cast<quint16>(Port));
    ASSERT_TRUE(Eventually([&] { return socket->state() == QAbstractSocket::ConnectedState; }));
  }
  ASSERT_TRUE(Eventually([&] { return Server.Requests.size() == 1; }));
  LetPass(50);
  EXPECT_EQ(Server.Requests.size(), 1);
  Server.Socket.Reject(Server.Requests[0]);
  ASSERT_TRUE(Eventually([&] { return Server.Requests.size() == 2; }));
  EXPECT_TRUE(Eventually([&] { return first.state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_EQ(Server.Socket.State(), ConnectionState::Listening);
  EXPECT_TRUE(Server.Socket.Accept(Server.Requests[1]));
  Server.Socket.SendData(u"hello"_s);
  EXPECT_TRUE(Eventually([&] { return second.bytesAvailable() == 5; }));
}

TEST_F(Tcp, AThirdPartyFindsNobodyListeningAfterAcceptance) {
  Connect();
  QTcpSocket third;
  third.connectToHost(u"127.0.0.1"_s, static_cast<quint16>(Port));
  EXPECT_TRUE(Eventually([&] { return third.error() == QAbstractSocket::ConnectionRefusedError; }));
}

TEST_F(Tcp, ARequesterWhoHasGoneCannotBeAcceptedAndListeningGoesOn) {
  Listen();
  {
    QTcpSocket impatient;
    impatient.connectToHost(u"127.0.0.1"_s, static_cast<quint16>(Port));
    ASSERT_TRUE(Eventually([&] { return Server.Requests.size() == 1; }));
    impatient.abort();
  }
  // Loopback delivers the news before abort() returns.
  EXPECT_FALSE(Server.Socket.Accept(Server.Requests[0]));
  EXPECT_EQ(Server.Socket.State(), ConnectionState::Listening);
  Client.Socket.Connect(u"127.0.0.1"_s, Port);
  LetPass(20);
  EXPECT_EQ(Server.Requests.size(), 1) << "the next is told once this one has been rejected";
  Server.Socket.Reject(Server.Requests[0]);
  EXPECT_TRUE(Eventually([&] { return Server.Requests.size() == 2; }));
}

TEST_F(Tcp, RequestersWhoHaveGoneAreNotAskedAbout) {
  Listen();
  QTcpSocket asked_about;
  Knock(asked_about);
  ASSERT_TRUE(Eventually([&] { return Server.Requests.size() == 1; }));
  // Some are taken from the system's queue before the first one is answered, some after.
  for (int repetition = 0; repetition < 15; ++repetition) {
    QTcpSocket silent;
    QTcpSocket talking;
    QTcpSocket resetting;
    for (QTcpSocket* impatient : {&silent, &talking, &resetting}) Knock(*impatient);
    ASSERT_EQ(send(DescriptorOf(talking), "x", 1, 0), 1);
    Reset(resetting);
  }
  QTcpSocket half_closed;
  Knock(half_closed);
  HalfClose(half_closed);
  QTcpSocket patient;
  Knock(patient);
  LetPass(50);
  Server.Socket.Reject(Server.Requests[0]);
  ASSERT_TRUE(Eventually([&] { return Server.Requests.size() == 2; }));
  ASSERT_TRUE(Server.Socket.Accept(Server.Requests[1]));
  Server.Socket.SendData(u"hello"_s);
  EXPECT_TRUE(Eventually([&] { return patient.bytesAvailable() == 5; }));
}

TEST_F(Tcp, ARequesterWhoHasGoneIsNotAskedAboutAndListeningGoesOn) {
  Listen();
  {
    QTcpSocket impatient;
    Knock(impatient);
  }
  LetPass(50);
  EXPECT_TRUE(Server.Requests.isEmpty());
  QTcpSocket patient;
  Knock(patient);
  EXPECT_TRUE(Eventually([&] { return Server.Requests.size() == 1; }));
}

TEST_F(Tcp, FewRequestsAreTakenFromTheSystemAheadOfTheirTurn) {
  constexpr int kRequesters = 40;
  constexpr int kTaken = 17;  // the one that is asked about, and sixteen that wait
  Listen();
  std::array<QTcpSocket, kRequesters> requesters;
  for (QTcpSocket& requester : requesters) Knock(requester);
  const auto before = OpenDescriptors();
  ASSERT_TRUE(Eventually([&] { return OpenDescriptors() - before >= kTaken; }));
  LetPass(50);
  EXPECT_EQ(OpenDescriptors() - before, kTaken);
  for (int request = 0; request < kRequesters; ++request) {
    ASSERT_TRUE(Eventually([&] { return Server.Requests.size() == request + 1; }));
    Server.Socket.Reject(Server.Requests.last());
  }
}

// ---- Connecting ----

TEST_F(Tcp, AFailedConnectionIsSilentAndCanBeTriedAgain) {
  Client.Socket.Connect(u"127.0.0.1"_s, Port);
  ASSERT_TRUE(Eventually([&] { return Client.Socket.State() == ConnectionState::Closed; }));
  EXPECT_FALSE(Client.Socket.SendData(u"x"_s));
  Connect();
}

TEST_F(Tcp, HostsThatDoNotExistAreSilent) {
  Client.Socket.Connect(u" not a host "_s, Port);
  EXPECT_TRUE(Eventually([&] { return Client.Socket.State() == ConnectionState::Closed; }));
}

// ---- Sending and reading ----

TEST_F(Tcp, SendsOfOneHandlerArriveAsOneRead) {
  Connect();
  Client.Socket.SendData(u"Jug|-1|2"_s);
  Client.Socket.SendData(u"Haganado|1"_s);
  ASSERT_TRUE(Eventually([&] { return !Server.Reads.isEmpty(); }));
  EXPECT_EQ(Server.Reads, QStringList(u"Jug|-1|2Haganado|1"_s));
}

TEST_F(Tcp, AFinishedSendAndTheNextAreTwoReads) {
  Connect();
  Client.Socket.SendData(u"Datos|"_s);
  ASSERT_TRUE(Eventually([&] { return Client.Completed == 1; }));
  Client.Socket.SendData(u"Listo|"_s);
  ASSERT_TRUE(Eventually([&] { return Server.Reads.size() == 2; }));
  EXPECT_EQ(Server.Reads, QStringList({u"Datos|"_s, u"Listo|"_s}));
}

TEST_F(Tcp, AFlushedSendHasLeftBeforeTheEventLoopRunsAgain) {
  QTcpSocket raw;
  AcceptBare(raw);
  Server.Socket.SendData(u"before"_s);
  Server.Socket.Flush();
  EXPECT_TRUE(raw.waitForReadyRead(5000));
  EXPECT_EQ(raw.readAll(), "before");
}

TEST_F(Tcp, ASendIsCompleteNotSoonerThanTwentyMilliseconds) {
  Connect();
  QElapsedTimer clock;
  clock.start();
  Client.Socket.SendData(u"x"_s);
  ASSERT_TRUE(Eventually([&] { return Client.Completed == 1; }));
  EXPECT_GE(clock.elapsed(), 19);
  LetPass(60);
  EXPECT_EQ(Client.Completed, 1);
}

TEST_F(Tcp, ASendIsNotCompleteWhileThePeerHoldsItBack) {
  QTcpSocket raw;
  raw.setReadBufferSize(1);
  AcceptBare(raw);
  Server.Socket.SendData(QString(24 << 20, u'x'));
  LetPass(150);
  EXPECT_EQ(Server.Completed, 0);
  raw.setReadBufferSize(0);
  qint64 read = 0;
  EXPECT_TRUE(Eventually([&] {
    read += raw.readAll().size();
    return Server.Completed == 1;
  }));
}

TEST_F(Tcp, TextsTravelAsOneByteACharacter) {
  Connect();
  Client.Socket.SendData(u"Ñandú € ☺"_s);
  ASSERT_TRUE(Eventually([&] { return !Server.Reads.isEmpty(); }));
  EXPECT_EQ(Server.Reads.join(QString()), u"Ñandú € ?"_s);
}

TEST_F(Tcp, WhatIsNotReadIsHeldBackAndNotLost) {
  Connect();
  Server.Socket.blockSignals(true);
  constexpr int kSent = 16 << 20;
  Client.Socket.SendData(QString(kSent, u'x'));
  LetPass(200);
  QString first = Server.Socket.GetData();
  EXPECT_LE(first.size(), 1 << 18);
  qsizetype read = first.size();
  EXPECT_TRUE(Eventually([&] {
    const qsizetype more = Server.Socket.GetData().size();
    EXPECT_LE(more, 1 << 18);
    read += more;
    return read == kSent;
  }));
}

// ---- The end ----

TEST_F(Tcp, WhatThePeerSentBeforeItClosedIsStillRead) {
  Connect();
  Client.Socket.SendData(u"Seguir|No"_s);
  Client.Socket.Close();
  ASSERT_TRUE(Eventually([&] { return Server.Losses == 1; }));
  EXPECT_TRUE(Eventually([&] { return Server.Reads == QStringList(u"Seguir|No"_s); }));
  EXPECT_EQ(Server.Socket.State(), ConnectionState::Closed);
  EXPECT_FALSE(Server.Socket.SendData(u"x"_s));
}

TEST_F(Tcp, ASendThatThePeerHasReadBeforeClosingIsComplete) {
  Connect();
  QObject::connect(&Server.Socket, &Connection::DataArrival, &Server.Socket, [&] { Server.Socket.Close(); });
  QObject::connect(&Client.Socket, &Connection::Lost, &Client.Socket, [&] { EXPECT_EQ(Client.Completed, 1); });
  Client.Socket.SendData(u"x"_s);
  ASSERT_TRUE(Eventually([&] { return Client.Losses == 1; }));
  EXPECT_EQ(Client.Completed, 1);
}

TEST_F(Tcp, ASendThatThePeerAnswersWithAResetIsNotComplete) {
  QTcpSocket raw;
  AcceptBare(raw);
  Server.Socket.SendData(u"x"_s);
  Server.Socket.Flush();
  Reset(raw);
  ASSERT_TRUE(Eventually([&] { return Server.Losses == 1; }));
  EXPECT_EQ(Server.Completed, 0);
}

TEST_F(Tcp, ASendThatAResetCutsShortIsNotComplete) {
  QTcpSocket raw;
  AcceptBare(raw);
  Server.Socket.SendData(QString(24 << 20, u'x'));
  Server.Socket.Flush();
  Reset(raw);
  ASSERT_TRUE(Eventually([&] { return Server.Losses == 1; }));
  EXPECT_EQ(Server.Completed, 0);
}

TEST_F(Tcp, ASendToAPeerWhoHasClosedIsNotComplete) {
  QTcpSocket raw;
  AcceptBare(raw);
  raw.abort();
  EXPECT_TRUE(Server.Socket.SendData(u"x"_s));
  ASSERT_TRUE(Eventually([&] { return Server.Losses == 1; }));
  EXPECT_EQ(Server.Completed, 0);
}

TEST_F(Tcp, ASendThatHasNotLeftWholeWhenThePeerClosesIsNotComplete) {
  constexpr int kSent = 24 << 20;
  QTcpSocket raw;
  AcceptBare(raw);
  Server.Socket.SendData(QString(kSent, u'x'));
  Server.Socket.Flush();
  EXPECT_LT(ReadAllThatHasLeft(raw), kSent);
  raw.abort();
  ASSERT_TRUE(Eventually([&] { return Server.Losses == 1; }));
  EXPECT_EQ(Server.Completed, 0);
}

TEST_F(Tcp, ClosingInsideTheHandlerOfAReadIsSafe) {
  Connect();
  QObject::connect(&Server.Socket, &Connection::DataArrival, &Server.Socket, [&] {
    Server.Socket.Close();
    LetPass(30);
  });
  Client.Socket.SendData(u"a"_s);
  EXPECT_TRUE(Eventually([&] { return Client.Losses == 1; }));
}

TEST_F(Tcp, ClosingTwiceOrWithoutConnectionIsHarmless) {
  Server.Socket.Close();
  Listen();
  Server.Socket.Close();
  Server.Socket.Close();
  EXPECT_EQ(Server.Socket.State(), ConnectionState::Closed);
  Listen();
}

}  // namespace
}  // namespace brontavia::test
