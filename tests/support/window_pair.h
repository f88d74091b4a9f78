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

  // For the user's script: connects Ana, the server, with Luis; she has the first turn.
  void Handshake() {
    Client.Press(QStringLiteral("CBConLocal"));
    Answer(QStringLiteral("Solicitud de conexión"), QStringLiteral("OK"));
    EXPECT_TRUE(Eventually([this] {
      return Server.Window->template findChild<QDialog*>() != nullptr &&
             Client.Window->template findChild<QDialog*>() != nullptr;
    }));
    for (const auto& [name, choice] : {std::pair("Luis", "2"), {"Ana", "1"}}) {
      AnswerInput(QStringLiteral("Introducir nombre"), QString::fromLatin1(name));
      AnswerInput(QStringLiteral("Asignación del primer turno"), QString::fromLatin1(choice));
    }
  }
};

}  // namespace brontavia::test
