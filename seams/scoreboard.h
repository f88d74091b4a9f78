// What the strip above a board tells: one value, told whole.
#pragma once

#include <QString>
#include <optional>

namespace brontavia {

// The sign by which a player is known on the board.
enum class PlayerSign {
  X,
  O,
  Pennant,      // fleet of the server
  SwallowTail,  // fleet of the client
  Sun,          // army of the server
  Moon,         // army of the client
  WhiteKing,
  BlackKing
};

enum class PlayerState {
  Waiting,  // nothing to tell: the first turn is not settled, or it is the other's turn
  Placing,
  Ready,
  ToMove,
  Won,
  Drew
};

// A piece that has fought, as far as the message of the fight names it.
struct FoughtPiece {
  QString Name;    // "Capitán"
  QString Emblem;  // the picture of its rank: "rank_capitan"
  bool Fell = false;
  friend bool operator==(const FoughtPiece&, const FoughtPiece&) = default;
};

struct ScoreboardClock {
  QString Time;  // "04:12"
  bool Runs = false;
  friend bool operator==(const ScoreboardClock&, const ScoreboardClock&) = default;
};

struct ScoreboardSide {
  QString Name;  // without outer blanks
  PlayerSign Sign = PlayerSign::X;
  int Score = 0;
  PlayerState State = PlayerState::Waiting;
  QString StateWord;  // "Mueve", "Coloca sus barcos"; empty while waiting
  std::optional<ScoreboardClock> Clock;
  std::optional<FoughtPiece> Fought;
  friend bool operator==(const ScoreboardSide&, const ScoreboardSide&) = default;
};

struct Scoreboard {
  ScoreboardSide Own;
  ScoreboardSide Other;
  friend bool operator==(const Scoreboard&, const Scoreboard&) = default;
};

// The same in words, own side first: "Ana 1, Luis 0. Mueve Ana." Of a side whose name is unknown it tells nothing.
QString SentenceOf(const Scoreboard& scoreboard);

}  // namespace brontavia
