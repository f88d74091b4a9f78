// The real connection: one TCP listener that becomes one socket. Everything is delivered from the event loop of the
// thread that made it.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <memory>

#include "seams/connection.h"

namespace brontavia {

class SecondHandle;

class TcpConnection : public Connection {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(TcpConnection)

 public:
  TcpConnection();
  ~TcpConnection() override;

  [[nodiscard]] ConnectionState State() const override;
  [[nodiscard]] QList<OwnAddress> OwnAddresses() const override;
  std::optional<QString> Listen(std::int32_t port) override;
  bool Accept(int request) override;
  void Reject(int request) override;
  void Connect(const QString& host, std::int32_t port) override;
  void Close() override;
  bool SendData(const QString& text) override;
  void Flush() override;
  QString GetData() override;

 private:
  // Closed at once, destroyed from the event loop: a socket may be let go inside one of its own signals.
  struct LetGo {
    void operator()(QTcpSocket* socket) const;
    void operator()(QTcpServer* server) const;
  };
  using SocketPointer = std::unique_ptr<QTcpSocket, LetGo>;

  void TellNextRequest();
  void Use(SocketPointer socket);
  // Of an unfinished send: whether nothing waits here any more and the peer's system has acknowledged every byte.
  [[nodiscard]] bool AllAcknowledged() const;
  void EndSend();
  void CheckSent();
  void TellLost();

  std::unique_ptr<QTcpServer, LetGo> server_;
  SocketPointer requester_;  // asked about, not yet answered
  int request_ = 0;          // its number
  SocketPointer socket_;
  std::unique_ptr<SecondHandle> unfinished_send_;  // goes with the send, at the latest in Close()
  QTimer sent_check_;                              // runs while there is one
  bool flush_queued_ = false;
};

}  // namespace brontavia
