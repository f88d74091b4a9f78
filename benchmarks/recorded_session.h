// A session of three in a row without a network and without a screen, for which reads are delivered from a record.
#pragma once

#include <utility>

#include "games/three_in_row/three_in_row_flow.h"

namespace brontavia {

// Delivers recorded texts; what is sent goes nowhere.
class RecordedConnection : public Connection {
 public:
  [[nodiscard]] ConnectionState State() const override { return ConnectionState::Connected; }
  [[nodiscard]] QList<OwnAddress> OwnAddresses() const override { return {}; }
  std::optional<QString> Listen(std::int32_t /*port*/) override { return std::nullopt; }
  bool Accept(int /*request*/) override { return true; }
  void Reject(int /*request*/) override {}
  void Connect(const QString& /*host*/, std::int32_t /*port*/) override {}
  void Close() override {}
  bool SendData(const QString& text) override { return !text.isEmpty(); }
  void Flush() override {}
  QString GetData() override { return std::exchange(read_, {}); }

  void Deliver(const QString& text) {
    read_ = text;
    emit DataArrival();
  }

 private:
  QString read_;
};

// Answers every box as if it had been cancelled, which leaves the proposals standing.
class SilentDialogs : public Dialogs {
 public:
  Button MessageBox(const QString& /*text*/, const QString& /*title*/, Buttons /*buttons*/) override {
    return Button::Ok;
  }
  QString InputBox(const QString& /*prompt*/, const QString& /*title*/, const QString& /*proposal*/) override {
    return {};
  }
  QString OpenFile(const FileQuestion& /*question*/) override { return {}; }
  QString SaveFile(const FileQuestion& /*question*/) override { return {}; }
  std::optional<int> PopUpMenu(const QString& /*name*/, const QString& /*title*/,
                               const QList<MenuItem>& /*items*/) override {
    return {};
  }
  void Dismiss(const QString& /*text*/) override {}
  void CloseAll() override {}
  [[nodiscard]] bool IsShowing() const override { return false; }
};

class BlindScreen : public Screen {
 public:
  void SetCaption(const QString& /*caption*/) override {}
  void ShowFrame(Frame /*frame*/, bool /*visible*/) override {}
  void SetText(Box /*box*/, const QString& /*text*/) override {}
  void AppendText(Box /*box*/, const QString& /*text*/) override {}
  void AddMessage(const QString& /*line*/) override {}
  void Announce(const QString& /*sentence*/) override {}
  void PlaySound(MediaPlayer /*player*/, const QString& /*file*/) override {}
  void ShowScoreboard(const Scoreboard& /*scoreboard*/) override {}
  void ShowKeys(const KeyHints& /*keys*/) override {}
  void ShowBoardCaption(const QString& /*caption*/, PlayerSign /*owner*/) override {}
  void Beep() override {}
};

// A client whose session has begun; the server is to move.
struct Client {
  Client() {
    Values.PlayerRole = Role::Client;
    Flow.Load();
    Connection.Deliver(QStringLiteral("Solicitud aceptada|TER"));
    Connection.Deliver(QStringLiteral("Nombre|Servidor"));
    Connection.Deliver(QStringLiteral("Turnodef|00"));
  }

  RecordedConnection Connection;
  SilentDialogs Dialogs;
  BlindScreen Screen;
  ProcessValues Values;
  ThreeInRowFlow Flow{{.Connection = Connection, .Dialogs = Dialogs, .Screen = Screen, .Values = Values}, 1};
};

}  // namespace brontavia
