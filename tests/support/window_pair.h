// Two windows of one game, joined by TCP.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <utility>

#include "tests/support/box_answerer.h"
#include "tests/support/free_port.h"
#include "tests/support/owned_window.h"

namespace brontavia::test {

template <typename GameForm>
struct WindowPair {
  std::int32_t Port = FreePort();
  OwnedWindow<GameForm> Server{Role::Server, Port};
  OwnedWindow<GameForm> Client{Role::Client, Port};

  // ---- For the user's script ----

  // Until both are asked for their names; the client's box opened later and is on top.
  void Connect() {
    Client.Press(QStringLiteral("CBConLocal"));
    Answer(QStringLiteral("Solicitud de conexión"), QStringLiteral("OK"));
    EXPECT_TRUE(Eventually([this] {
      return Server.Window->template findChild<QDialog*>() != nullptr &&
             Client.Window->template findChild<QDialog*>() != nullptr;
    }));
  }
  // Then: Ana, the server, has the first turn.
  void TellNames(const QString& client = QStringLiteral("Luis")) {
    for (const auto& [name, choice] : {std::pair(client, "2"), {QStringLiteral("Ana"), "1"}}) {
      AnswerInput(QStringLiteral("Introducir nombre"), name);
      AnswerInput(QStringLiteral("Asignación del primer turno"), QString::fromLatin1(choice));
    }
  }
  void Handshake() {
    Connect();
    TellNames();
  }
};

}  // namespace brontavia::test
