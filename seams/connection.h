// The one connection of a game window, seen from the flow: the operations and events of Winsock1. TcpConnection is
// the real one; tests join two flows in one process.
#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <cstdint>
#include <optional>

namespace brontavia {

enum class ConnectionState { Closed, Listening, Connecting, Connected };

// How others come to an address of this computer.
enum class AddressKind {
  Cable,           // from the same local network
  Radio,           // the same, without a cable
  VirtualNetwork,  // from the same virtual private network
  InternetIPv4,    // from everywhere
  InternetIPv6     // from everywhere where there is IPv6
};

struct OwnAddress {
  QString Address;  // "192.168.1.37"
  AddressKind Kind = AddressKind::Cable;
  friend bool operator==(const OwnAddress&, const OwnAddress&) = default;
};

class Connection : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  [[nodiscard]] virtual ConnectionState State() const = 0;

  // Those of this computer that another can reach now, the most useful first; none without a network.
  [[nodiscard]] virtual QList<OwnAddress> OwnAddresses() const = 0;

  // Starts listening on every address of this computer. Returns nothing when that went well, otherwise the reason in
  // words for the user. Ports outside 1..65535 are refused.
  virtual std::optional<QString> Listen(std::int32_t port) = 0;

  // Takes the request of a ConnectionRequest event and ends listening. Returns false, and goes on listening, when the
  // requester has gone meanwhile; Reject is to follow then, when the user knows.
  virtual bool Accept(int request) = 0;

  // Drops the request of a ConnectionRequest event and goes on listening.
  virtual void Reject(int request) = 0;

  // Starts connecting. `host` is a name or an address, used as it stands. A failure is silent: State() is Closed then.
  virtual void Connect(const QString& host, std::int32_t port) = 0;

  // Closes whatever is open; harmless when nothing is.
  virtual void Close() = 0;

  // Sends `text` as it stands. Texts sent in one handler leave together, at the latest when the handler returns to the
  // event loop. Returns false, and sends nothing, when there is no connection.
  virtual bool SendData(const QString& text) = 0;

  // Lets everything sent so far leave now, so that it does not share a read with what is sent later.
  virtual void Flush() = 0;

  // Takes everything received so far as one text; empty when there is nothing.
  virtual QString GetData() = 0;

 signals:
  // A peer asks to connect and is still there. The next request is told only after this one has been accepted or
  // rejected; one whose peer has gone by then is never told.
  void ConnectionRequest(int request);

  // Something has been received. Delivered from the event loop, so also while an earlier handler waits for a box.
  void DataArrival();

  // The peer's system has acknowledged everything that was sent (where this one does not tell: everything has been
  // handed on). Not told when a connection is reset before that.
  void SendComplete();

  // The connection has gone, by the peer or by failure. Nobody is told; waits end. When the peer closed in order and
  // had acknowledged everything, SendComplete comes first.
  void Lost();
};

}  // namespace brontavia
