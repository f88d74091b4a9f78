// Two copies of three in a row in one process: server and client, joined.
#pragma once

#include <QCoreApplication>
#include <memory>

#include "games/three_in_row/three_in_row_flow.h"
#include "tests/support/joined_connections.h"
#include "tests/support/printers.h"
#include "tests/support/recording_screen.h"
#include "tests/support/scripted_dialogs.h"

namespace brontavia::test {

struct TerCopy {
  TerCopy(Role role, const QString& owner, unsigned seed);

  // Clicks cell 0..8.
  void Click(int cell) { Flow.BoardClicked({cell / kTerSide, cell % kTerSide}); }
  // The nine cells as FG1 shows them, row by row.
  [[nodiscard]] QString Shown() const;

  TestConnection Connection;
  ScriptedDialogs Dialogs;
  RecordingScreen Screen;
  ProcessValues Values;
  std::optional<AfterWindow> Finished;
  ThreeInRowFlow Flow;
};

// What the two players answer in the handshake.
struct Handshake {
  QString ServerName = QStringLiteral("Ana");
  QString ClientName = QStringLiteral("Luis");
  QString ServerChoice = QStringLiteral("1");
  QString ClientChoice = QStringLiteral("2");
};

class TerPair {
 public:
  explicit TerPair(unsigned seed = 1);

  TerCopy Server;
  TerCopy Client;

  [[nodiscard]] TerCopy& Copy(int player) { return player == 0 ? Server : Client; }

  // Lets everything that is under way come to rest.
  void Settle();

  // Loads both windows and lets the client ask.
  void Ask();
  // Ask, and on with scripted answers until the first turn is settled.
  void Connect(const Handshake& answers = {});
  // Clicks in turn, beginning with the player to move, each settled before the next.
  void Play(std::initializer_list<int> cells);
};

// The texts of the handshake's boxes.
namespace box {
inline const QString kRequestTitle = QStringLiteral("Solicitud de conexión");
inline const QString kRequest = QStringLiteral("Se ha recibido una solicitud de conexión. ¿Desea aceptarla?");
inline const QString kNameTitle = QStringLiteral("Introducir nombre");
inline const QString kName = QStringLiteral("Por favor, introduzca su  nombre para mostrar al otro jugador: ");
inline const QString kTurnTitle = QStringLiteral("Asignación del primer turno");
inline const QString kTurn =
    QStringLiteral("Indique qué jugador empezará la partida: 1 = yo empiezo; 2 = Él empieza; 3 = Sortear.");
inline const QString kRematchTitle = QStringLiteral("Tres en raya");
inline const QString kRematch = QStringLiteral("¿Desea jugar otra partida?");
inline const QString kWonTitle = QStringLiteral("Enhorabuena");
inline const QString kWon = QStringLiteral(
    "¡Ha ganado! Consiguió hacer tres en raya antes que su rival.\r\nPulse sobre el tablero para continuar.");
inline const QString kLostTitle = QStringLiteral("Ha perdido");
inline const QString kLostEnding =
    QStringLiteral(" ha conseguido tres en raya antes que usted.\r\nPulse sobre el tablero para continuar.");
inline const QString kCloseTitle = QStringLiteral("Tres en raya");
inline const QString kClose =
    QStringLiteral("¿Está seguro de que desea salir? La partida se dará por terminada y no se podrá reanudar.");
inline const QString kErrorTitle = QStringLiteral("Error");
inline const QString kNoConnection =
    QStringLiteral("No hay conexión con el otro jugador. No se le ha podido enviar su última acción.");
inline const QString kNewGameTitle = QStringLiteral("Nueva partida");
}  // namespace box

}  // namespace brontavia::test
