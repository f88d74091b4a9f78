// The messages that two copies send each other.
//
// A message is one text of fields joined by "|", the first field naming it: no terminator, no length, no escaping.
// A receiver takes whatever one read brings as one text and looks in it for each message that its window understands,
// in the window's order (net/window_traits.cpp). Each look is independent of the others, so that one read with two
// messages sets off both handlers. What a handler is given is cut out of the whole text by position, wherever the
// token stands in it.
#pragma once

#include <QStringView>

namespace brontavia {

struct Message {
  QStringView Token;        // sought anywhere in a text, case-sensitive; also how the sent text begins
  int PayloadFrom = 1;      // where the handler's payload begins in the whole text, counted from 1
  QStringView Unless = {};  // when not empty: not looked for in a text that contains this
};

namespace message {

// "Solicitud aceptada|" + game code. Server, right after it has accepted the connection. The client checks the code
// and starts the session, or closes its window. It is sought before the window's other messages, and a text that
// contains it is searched for nothing else. The token has no "|": the game code is sought together with its own.
inline constexpr Message kAccepted{u"Solicitud aceptada"};

// "Nombre|" + name, not cut and not padded. Both sides, once the player has typed the name.
inline constexpr Message kName{u"Nombre|", 8};

// "turno|" + choice: "1" the client wants to start, "2" the server is to start, "3" draw. Client, once its player has
// answered the first-turn question. The server turns it into its own view and decides as soon as it has both choices.
inline constexpr Message kTurnChoice{u"turno|", 7};

// "Turnodef|" + starter + how: "0" the server or "1" the client starts, by "0" mutual decision or "1" draw. Server,
// when it has decided; ignored at the server. Read from the whole text: the starter at position 10, the last character
// tells how.
inline constexpr Message kTurnDecided{u"Turnodef|"};

// "Seguir|Si". Either side, when its player wants another game.
inline constexpr Message kRematchYes{u"Seguir|Si"};

// "Seguir|No". Either side, when its player wants no other game; sent until it has certainly left, so that one read
// may hold it several times. The receiver tells its player and closes the window.
inline constexpr Message kRematchNo{u"Seguir|No", 1, kRematchYes.Token};

// "Jug|" + the move's fields, which each game has its own of. The player who has moved.
// Three in a row: lifted cell (-1 while placing) + "|" + target cell, both 0..8 in decimal.
// Naval battle, for every shot: column, row and "A" (water) or "I" (hit), one character each.
// Strategy: column and row of the origin, column and row of the target, result of the attack, each with two digits and
// ","; the result is "00" the attacker is destroyed, "01" it wins or has only moved, "02" both are destroyed.
inline constexpr Message kMove{u"Jug|", 5};

// "Datos|" + everything that the player has placed. Either side, once it is complete; "Listo|" follows when the peer's
// TCP has acknowledged it, so normally as a read of its own. Naval battle: seven blocks of five characters, one a ship.
// Strategy: the code of every cell of the zone, three digits and "," each.
inline constexpr Message kPlaced{u"Datos|", 7};

// "Listo|". Either side, right after its "Datos|" has certainly arrived: it is ready.
inline constexpr Message kReady{u"Listo|"};

// "Pasaturno|". The player who has no piece that can move. It contains "turno|", so that it sets off that message's
// handler as well: a server draws anew who is to move.
inline constexpr Message kPassed{u"Pasaturno|"};

// "Haganado|", in three in a row followed by the winner's player number, which nobody reads. The winner, right after
// the winning move: both normally arrive as one read. In a strategy game it stands for the move that takes the flag.
inline constexpr Message kWon{u"Haganado|"};

// ---- Chess ----

// "JUG|" + column and row of source and target, whether it captured en passant, what a pawn became, parted by blanks.
// The mover, after every move. The receiver plays it by the same rules, and asks its own player what a pawn becomes.
inline constexpr Message kChessMove{u"JUG|", 5};

// "JMate|". The player who declares himself checkmated.
inline constexpr Message kMateDeclared{u"JMate|"};

// "Abandona|". The player who resigns.
inline constexpr Message kResigned{u"Abandona|"};

// "SolTablas|". The player who offers a draw. "SolTablasSi|" or "SolTablasNo|" answers it.
inline constexpr Message kDrawOffered{u"SolTablas|"};
inline constexpr Message kDrawAccepted{u"SolTablasSi|"};
inline constexpr Message kDrawRefused{u"SolTablasNo|"};

// "cargpartida|" + name of the file. The player who wants to go on with a saved position. "cargpsi|" or "cargpno|"
// answers it. Then he sends "datospartida|" + the line of the file, and once he has chosen colours, "cargpturnos|" +
// player of White, side to move and player to move, parted by blanks.
inline constexpr Message kResumeAsked{u"cargpartida|", 13};
inline constexpr Message kResumeAccepted{u"cargpsi|"};
inline constexpr Message kResumeRefused{u"cargpno|"};
inline constexpr Message kPosition{u"datospartida|", 14};
inline constexpr Message kResumedTurns{u"cargpturnos|", 13};

// "modolibre|". The player who switches free mode on; sent until it has certainly left.
inline constexpr Message kFreeMode{u"modolibre|"};

}  // namespace message
}  // namespace brontavia
