#include "tests/support/joined_connections.h"

#include <utility>

#include "text/wire_encoding.h"

namespace brontavia::test {
namespace {

constexpr int kRequest = 1;

}  // namespace

void TestConnection::Join(TestConnection& server, TestConnection& client) {
  server.peer_ = &client;
  client.peer_ = &server;
}

std::optional<QString> TestConnection::Listen(std::int32_t port) {
  if (ListenFailure) return ListenFailure;
  ListeningPort = port;
  state_ = ConnectionState::Listening;
  return std::nullopt;
}

void TestConnection::Connect(const QString& host, std::int32_t port) {
  Targets << QStringLiteral("%1:%2").arg(host).arg(port);
  Close();
  if (peer_ == nullptr || peer_->state_ != ConnectionState::Listening) return;
  state_ = ConnectionState::Connecting;
  if (std::exchange(peer_->asked_, true)) return;
  QMetaObject::invokeMethod(
      peer_, [peer = peer_] { emit peer->ConnectionRequest(kRequest); }, Qt::QueuedConnection);
}

bool TestConnection::Accept(int /*request*/) {
  if (peer_ == nullptr || peer_->state_ != ConnectionState::Connecting) return false;
  asked_ = false;
  state_ = peer_->state_ = ConnectionState::Connected;
  return true;
}

void TestConnection::Reject(int /*request*/) {
  asked_ = false;
  if (peer_ != nullptr) peer_->state_ = ConnectionState::Closed;
}

void TestConnection::Close() {
  if (state_ == ConnectionState::Connected) {
    Flush();
    if (peer_ != nullptr && peer_->state_ == ConnectionState::Connected) {
      peer_->state_ = ConnectionState::Closed;
      QMetaObject::invokeMethod(peer_, &Connection::Lost, Qt::QueuedConnection);
    }
  }
  state_ = ConnectionState::Closed;
  reads_.clear();
}

void TestConnection::Break() {
  for (TestConnection* side : {this, peer_}) {
    if (side == nullptr) continue;
    side->state_ = ConnectionState::Closed;
    side->outbox_.clear();
    side->HoldSendComplete = true;
    QMetaObject::invokeMethod(side, &Connection::Lost, Qt::QueuedConnection);
  }
}

// ---- Sending ----

bool TestConnection::SendData(const QString& text) {
  if (state_ != ConnectionState::Connected) return false;
  Sent << text;
  outbox_ << FromWire(ToWire(text));
  if (!std::exchange(flush_queued_, true)) {
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

void TestConnection::Flush() {
  if (outbox_.isEmpty()) return;
  const QStringList texts = std::exchange(outbox_, {});
  if (peer_ != nullptr && peer_->state_ == ConnectionState::Connected) peer_->Deliver(texts);
  if (HoldSendComplete) return;
  if (AcknowledgeAfter > 0) {
    acknowledgement_.setSingleShot(true);
    acknowledgement_.callOnTimeout(this, &TestConnection::Complete, Qt::UniqueConnection);
    acknowledgement_.start(AcknowledgeAfter);
    return;
  }
  if (std::exchange(completion_queued_, true)) return;
  QMetaObject::invokeMethod(this, &TestConnection::Complete, Qt::QueuedConnection);
}

void TestConnection::Complete() {
  completion_queued_ = false;
  if (HoldSendComplete) return;
  emit SendComplete();  // also when the peer has read everything and closed since
}

// ---- Receiving ----

void TestConnection::Receive(const QString& text) { Deliver({text}); }

void TestConnection::Deliver(const QStringList& texts) {
  QStringList reads;
  if (Cut == Reads::OnePerSend) {
    reads = texts;
  } else {
    reads << texts.join(QString());
  }
  for (const QString& read : std::as_const(reads)) {
    const qsizetype piece = BytesPerRead > 0 ? BytesPerRead : qMax<qsizetype>(read.size(), 1);
    for (qsizetype from = 0; from < read.size(); from += piece) {
      reads_ << read.mid(from, piece);
      ++deliveries_queued_;
      QMetaObject::invokeMethod(
          this,
          [this] {
            --deliveries_queued_;
            emit DataArrival();
          },
          Qt::QueuedConnection);
    }
  }
}

QString TestConnection::GetData() {
  // What has been told but not taken is one read with what is told now.
  const qsizetype arrived = Cut == Reads::OnePerDelivery ? reads_.size() : reads_.size() - deliveries_queued_;
  QString text;
  for (qsizetype i = 0; i < arrived; ++i) text += reads_.takeFirst();
  return text;
}

bool TestConnection::Quiet() const {
  return outbox_.isEmpty() && !flush_queued_ && !completion_queued_ && deliveries_queued_ == 0;
}

}  // namespace brontavia::test
