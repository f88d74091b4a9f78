#include "net/tcp_connection.h"

#include <QHostAddress>
#include <chrono>
#include <limits>
#include <utility>

#include "net/own_addresses.h"
#include "net/system_socket.h"
#include "text/wire_encoding.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// What the peer may send before it is read. Past this TCP holds it back. One read is one text, which its handler keeps,
// twice as long and more than once, for as long as its box is open: with a mebibyte a flood took 24 MiB.
constexpr qint64 kReadBufferSize = 1 << 18;

// Requesters who wait to be asked about, each with a read buffer; the rest wait in the system's queue.
constexpr int kMostWaiting = 16;

// A send is never told as complete sooner than this, so that what follows it is another read at the peer.
constexpr auto kShortestSend = 20ms;
constexpr auto kBetweenChecks = 5ms;

bool IsPort(std::int32_t port) { return port >= 1 && port <= std::numeric_limits<quint16>::max(); }

// Whether a requester has gone, even if the event loop has not come to reading it.
bool HasGone(const QTcpSocket& requester) {
  if (HowPeerEnded(requester.socketDescriptor()) != PeerEnd::None) return true;
  return requester.state() != QAbstractSocket::ConnectedState;
}

// Bounds how many requesters wait, and what each may send before it is accepted.
class Listener : public QTcpServer {
 public:
  Listener() { setMaxPendingConnections(kMostWaiting); }

 protected:
  void incomingConnection(qintptr descriptor) override {
    auto* socket = new QTcpSocket(this);
    socket->setReadBufferSize(kReadBufferSize);
    socket->setSocketDescriptor(descriptor);
    addPendingConnection(socket);
  }
};

}  // namespace

void TcpConnection::LetGo::operator()(QTcpSocket* socket) const {
  socket->disconnect();
  socket->flush();
  socket->abort();
  socket->deleteLater();
}

void TcpConnection::LetGo::operator()(QTcpServer* server) const {
  server->disconnect();
  server->close();
  server->deleteLater();
}

TcpConnection::TcpConnection() { connect(&sent_check_, &QTimer::timeout, this, &TcpConnection::CheckSent); }

TcpConnection::~TcpConnection() { TcpConnection::Close(); }

ConnectionState TcpConnection::State() const {
  if (server_) return ConnectionState::Listening;
  if (!socket_ || socket_->state() == QAbstractSocket::UnconnectedState) return ConnectionState::Closed;
  return socket_->state() == QAbstractSocket::ConnectedState ? ConnectionState::Connected : ConnectionState::Connecting;
}

QList<OwnAddress> TcpConnection::OwnAddresses() const { return ReachableAddresses(RunningInterfaces()); }

// ---- Server ----

std::optional<QString> TcpConnection::Listen(std::int32_t port) {
  if (!IsPort(port)) return u"el puerto debe estar entre 1 y 65535."_s;
  Close();
  server_.reset(new Listener);
  if (!server_->listen(QHostAddress::Any, static_cast<quint16>(port))) {
    const QString reason = server_->errorString();
    server_.reset();
    return reason;
  }
  connect(server_.get(), &QTcpServer::newConnection, this, &TcpConnection::TellNextRequest, Qt::QueuedConnection);
  return std::nullopt;
}

void TcpConnection::TellNextRequest() {
  if (!server_ || requester_) return;
  do {
    requester_.reset(server_->nextPendingConnection());
    if (!requester_) return;
    requester_->setParent(nullptr);  // it outlives the listener when it is accepted
  } while (HasGone(*requester_));
  emit ConnectionRequest(++request_);
}

bool TcpConnection::Accept(int request) {
  if (request != request_ || !requester_ || HasGone(*requester_)) return false;
  SocketPointer accepted = std::move(requester_);
  Close();
  Use(std::move(accepted));
  return true;
}

void TcpConnection::Reject(int request) {
  if (request != request_) return;
  requester_.reset();
  QMetaObject::invokeMethod(this, &TcpConnection::TellNextRequest, Qt::QueuedConnection);
}

// ---- Client ----

void TcpConnection::Connect(const QString& host, std::int32_t port) {
  Close();
  if (!IsPort(port)) return;
  Use(SocketPointer(new QTcpSocket));
  socket_->connectToHost(host, static_cast<quint16>(port));
}

// ---- Both ----

void TcpConnection::Use(SocketPointer socket) {
  socket_ = std::move(socket);
  socket_->setReadBufferSize(kReadBufferSize);
  socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
  // Queued: a read that arrives while a handler of an earlier one waits for a box is told as well.
  connect(socket_.get(), &QTcpSocket::readyRead, this, &Connection::DataArrival, Qt::QueuedConnection);
  connect(socket_.get(), &QTcpSocket::connected, this,
          [this] { socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1); });
  connect(socket_.get(), &QTcpSocket::disconnected, this, &TcpConnection::TellLost, Qt::QueuedConnection);
  if (socket_->bytesAvailable() > 0) QMetaObject::invokeMethod(this, &Connection::DataArrival, Qt::QueuedConnection);
}

void TcpConnection::Close() {
  EndSend();
  requester_.reset();
  server_.reset();
  socket_.reset();
}

bool TcpConnection::SendData(const QString& text) {
  if (State() != ConnectionState::Connected) return false;
  socket_->write(ToWire(text));
  unfinished_send_ = std::make_unique<SecondHandle>(socket_->socketDescriptor());
  sent_check_.start(kShortestSend);
  if (!std::exchange(flush_queued_, true)) {
    // Behind the handler that sends, so that its texts leave together, but before this side repaints.
    QMetaObject::invokeMethod(
        this,
        [this] {
          flush_queued_ = false;
          Flush();
        },
        Qt::QueuedConnection);
  }
  return true;
}

void TcpConnection::Flush() {
  if (socket_) socket_->flush();
}

bool TcpConnection::AllAcknowledged() const {
  return socket_->bytesToWrite() == 0 && unfinished_send_->AllAcknowledged();
}

void TcpConnection::EndSend() {
  sent_check_.stop();
  unfinished_send_.reset();
}

void TcpConnection::CheckSent() {
  if (State() != ConnectionState::Connected) return;  // TellLost is on its way
  if (!AllAcknowledged()) {
    sent_check_.start(kBetweenChecks);
    return;
  }
  EndSend();
  emit SendComplete();
}

void TcpConnection::TellLost() {
  // The toolkit calls a reset, too, a close by the peer.
  const bool sent = unfinished_send_ && socket_->error() == QAbstractSocket::RemoteHostClosedError &&
                    unfinished_send_->ClosedInOrder() && AllAcknowledged();
  EndSend();
  if (sent) emit SendComplete();
  emit Lost();
}

QString TcpConnection::GetData() { return socket_ ? FromWire(socket_->readAll()) : QString(); }

}  // namespace brontavia
