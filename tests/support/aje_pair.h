// Two copies of chess.
#pragma once

#include "games/chess/chess_flow.h"
#include "tests/support/game_pair.h"

namespace brontavia::test {

// What a draw, a saved position and a promotion ask.
namespace box {
inline const QString kDrawTitle = QStringLiteral("Brontavia - ajedrez");
inline const QString kDrawQuestion =
    QStringLiteral("El otro jugador le propone terminar la partida en tablas. ¿Acepta su propuesta?");
inline const QString kResumeTitle = QStringLiteral("Reanudar partida");
inline const QStringList kPromotionMenu{QStringLiteral("&Torre"), QStringLiteral("&Caballo"), QStringLiteral("&Alfil"),
                                        QStringLiteral("&Dama")};
}  // namespace box

// "e2" as a square.
inline Coordinate SquareNamed(const QString& name) {
  return {.Column = name.at(0).unicode() - u'a' + 1, .Row = name.mid(1).toInt()};
}

// Chess by a clock that the test moves.
struct TestChessFlow : ChessFlow {
  TestChessFlow(const Seams& seams, unsigned seed) : ChessFlow(seams, seed, [this] { return Time; }) {}

  // Lets time pass, and the timer ring at its end alone.
  void Pass(std::chrono::milliseconds time) {
    Time += time;
    Timer1().CatchUp();
  }

  std::chrono::milliseconds Time{};
};

struct AjeCopy : GameCopy<TestChessFlow> {
  using GameCopy::GameCopy;

  // As the window does: makes the cell of FG1 current and clicks it.
  void Click(const QString& square);
  [[nodiscard]] CellContent Shown(const QString& square) const {
    return Flow.FG1().Cell(Flow.IndexOf(SquareNamed(square)));
  }
  [[nodiscard]] QString Description(const QString& square) const {
    return Flow.FG1().Description(Flow.IndexOf(SquareNamed(square)));
  }
  [[nodiscard]] int At(const QString& square) const { return Flow.Game().Position().Board.At(SquareNamed(square)); }
  [[nodiscard]] bool Checked(ChessCommand command) const { return Flow.IsChecked(command); }
};

namespace box {
inline const QString kColourQuestion =
    QStringLiteral("Indique qué jugador Jugará con blancas: 1 = yo; 2 = Él; 3 = Sortear.");
inline const QString kChess = QStringLiteral("Ajedrez");
inline const QString kNotYourTurn = QStringLiteral("No es su turno de mover");
inline const QString kGameLost = QStringLiteral("Ha perdido la partida. Pulse sobre el tablero para continuar.");
inline const QString kGameWon = QStringLiteral("Ha ganado la partida, pulse en el tablero para continuar.");
inline const QString kFreeModeTitle = QStringLiteral("Activar modo libre");
inline const QString kFreeModeQuestion = QStringLiteral(
    "¿Seguro que desea activar el modo libre? Este modo permite reajustar las fichas que hay sobre el tablero, "
    "establecer valores sobre enroques y otros aspectos, así como parar y modificar los relojes,pero si está en medio "
    "de una partida contra otra persona es posible que aparezcan errores por discordancias entre los dos tableros, ya "
    "que los cambios que haga no se transmitirán. Si activa el modo libre se informará de ello a su rival.");
}  // namespace box

class AjePair : public GamePair<AjeCopy> {
 public:
  explicit AjePair(unsigned seed = 1) : GamePair(seed) {}

  // Until the first move; the server, Ana, has White.
  void Connect();
  // Moves in turn, "e2e4 e7e5", each settled before the next.
  void Play(const QString& moves);
};

}  // namespace brontavia::test
