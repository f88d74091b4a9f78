// Two connections joined inside one process. The test chooses how sends are cut into reads, and may cut the line.
#pragma once

#include <QStringList>
#include <QTimer>

#include "seams/connection.h"

namespace brontavia::test {

// How what one side sends becomes the other side's reads.
enum class Reads {
  AsSent,         // what leaves together arrives together, as on a quiet network
  OnePerSend,     // each send is a read of its own
  OnePerDelivery  // everything that is waiting arrives as one read
};

class TestConnection : public Connection {
  Q_OBJECT

 public:
  // Joins the two ends; each then finds the other when the client connects.
  static void Join(TestConnection& server, TestConnection& client);

  [[nodiscard]] ConnectionState State() const override { return state_; }
  [[nodiscard]] QList<OwnAddress> OwnAddresses() const override { return Addresses; }
  std::optional<QString> Listen(std::int32_t port) override;
  bool Accept(int request) override;
  void Reject(int request) override;
  void Connect(const QString& host, std::int32_t port) override;
  void Close() override;
  bool SendData(const QString& text) override;
  void Flush() override;
  QString GetData() override;

  // ---- What the test sets and sees ----

  Reads Cut = Reads::AsSent;             // of what this side receives
  int BytesPerRead = 0;                  // when positive: each read is cut into pieces of this many characters
  bool HoldSendComplete = false;         // the peer's TCP never acknowledges
  int AcknowledgeAfter = 0;              // milliseconds from the last send until all are acknowledged
  std::optional<QString> ListenFailure;  // reason with which Listen fails
  QList<OwnAddress> Addresses;           // of this computer
  QStringList Sent;                      // every text handed to SendData while connected
  QStringList Targets;                   // "host:port" of every Connect
  std::int32_t ListeningPort = 0;

  // A text from nowhere, as a stranger might send it.
  void Receive(const QString& text);
  // The peer's process has died: both ends are closed without a word.
  void Break();
  // Nothing is under way on this side.
  [[nodiscard]] bool Quiet() const;

 private:
  void Deliver(const QStringList& texts);
  void Complete();

  QTimer acknowledgement_;

  TestConnection* peer_ = nullptr;
  ConnectionState state_ = ConnectionState::Closed;
  QStringList outbox_;
  bool flush_queued_ = false;
  bool completion_queued_ = false;
  QStringList reads_;
  int deliveries_queued_ = 0;
  bool asked_ = false;  // the peer's request waits for an answer
};

}  // namespace brontavia::test
