// Two copies of one game in one process: server and client, joined.
#pragma once

#include <QCoreApplication>
#include <chrono>
#include <optional>

#include "net/game_flow.h"
#include "tests/support/joined_connections.h"
#include "tests/support/printers.h"
#include "tests/support/recording_screen.h"
#include "tests/support/scripted_dialogs.h"

namespace brontavia::test {

// The texts of the handshake's boxes.
namespace box {
inline const QString kRequestTitle = QStringLiteral("Solicitud de conexión");
inline const QString kRequest = QStringLiteral("Se ha recibido una solicitud de conexión. ¿Desea aceptarla?");
inline const QString kNameTitle = QStringLiteral("Introducir nombre");
inline const QString kName = QStringLiteral("Por favor, introduzca su  nombre para mostrar al otro jugador: ");
inline const QString kTurnTitle = QStringLiteral("Asignación del primer turno");
inline const QString kTurn =
    QStringLiteral("Indique qué jugador empezará la partida: 1 = yo empiezo; 2 = Él empieza; 3 = Sortear.");
inline const QString kRematch = QStringLiteral("¿Desea jugar otra partida?");
inline const QString kClose =
    QStringLiteral("¿Está seguro de que desea salir? La partida se dará por terminada y no se podrá reanudar.");
inline const QString kErrorTitle = QStringLiteral("Error");
inline const QString kNoConnection =
    QStringLiteral("No hay conexión con el otro jugador. No se le ha podido enviar su última acción.");
inline const QString kNewGameTitle = QStringLiteral("Nueva partida");
}  // namespace box

// What the two players answer in the handshake.
struct Handshake {
  QString ServerName = QStringLiteral("Ana");
  QString ClientName = QStringLiteral("Luis");
  QString ServerChoice = QStringLiteral("1");
  QString ClientChoice = QStringLiteral("2");
};

// `variant` is what the game's flow takes before all else.
template <typename Game>
struct GameCopy {
  GameCopy(Role role, const QString& owner, unsigned seed, const auto&... variant)
      : Dialogs(owner),
        Values{.PlayerRole = role},
        Flow(variant...,
             {.Connection = Connection,
              .Dialogs = Dialogs,
              .Screen = Screen,
              .Values = Values,
              .FreeBetweenBoxes = std::chrono::milliseconds(0)},
             seed) {
    QObject::connect(&Flow, &ConnectionFlow::Finished, &Flow, [this](AfterWindow after) { Finished = after; });
  }

  TestConnection Connection;
  ScriptedDialogs Dialogs;
  RecordingScreen Screen;
  ProcessValues Values;
  std::optional<AfterWindow> Finished;
  Game Flow;
};

// `Copy` is a GameCopy or derived from one.
template <typename CopyOfGame>
class GamePair {
 public:
  explicit GamePair(unsigned seed, const auto&... variant)
      : Server(Role::Server, QStringLiteral("server"), seed, variant...),
        Client(Role::Client, QStringLiteral("client"), seed + 1, variant...) {
    TestConnection::Join(Server.Connection, Client.Connection);
  }

  CopyOfGame Server;
  CopyOfGame Client;

  [[nodiscard]] CopyOfGame& Copy(Player player) { return player == Player::Server ? Server : Client; }

  // Lets everything that is under way come to rest.
  void Settle() {
    do {
      QCoreApplication::processEvents();
    } while (!Server.Connection.Quiet() || !Client.Connection.Quiet());
    QCoreApplication::processEvents();
  }

  // Loads both windows and lets the client ask.
  void Ask() {
    Server.Flow.Load();
    Client.Flow.Load();
    Client.Flow.CBConLocalClicked();
  }

  // What the handshake asks, with the answers.
  void ExpectHandshake(const Handshake& answers, const QString& turn_question = box::kTurn) {
    Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
    Server.Dialogs.ExpectInput(box::kNameTitle, box::kName, QStringLiteral("Servidor"), answers.ServerName);
    Server.Dialogs.ExpectInput(box::kTurnTitle, turn_question, QStringLiteral("3"), answers.ServerChoice);
    Client.Dialogs.ExpectInput(box::kNameTitle, box::kName, QStringLiteral("Cliente"), answers.ClientName);
    Client.Dialogs.ExpectInput(box::kTurnTitle, turn_question, QStringLiteral("3"), answers.ClientChoice);
  }
};

}  // namespace brontavia::test
