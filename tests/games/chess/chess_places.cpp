#include "tests/games/chess/chess_places.h"

#include <algorithm>
#include <cctype>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "games/chess/position_line.h"

namespace brontavia {

void PrintTo(const Coordinate& square, std::ostream* out) { *out << '(' << square.Column << ", " << square.Row << ')'; }

namespace {

void PrintTo(const std::optional<Coordinate>& square, std::ostream* out) {
  if (square) {
    PrintTo(*square, out);
  } else {
    *out << "none";
  }
}

}  // namespace

void PrintTo(const ChessPosition& position, std::ostream* out) {
  *out << test::Narrow(PositionLine(position)) << "; kings ";
  PrintTo(position.KingSquares.White, out);
  PrintTo(position.KingSquares.Black, out);
  *out << ", en passant ";
  PrintTo(position.EnPassantSquares.White, out);
  PrintTo(position.EnPassantSquares.Black, out);
  *out << ", in files ";
  PrintTo(position.FenEnPassant, out);
}

namespace test {
namespace {

int PieceCalled(char letter) {
  constexpr std::string_view kKinds = "prnbqk";
  const auto small = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  const std::size_t kind = kKinds.find(small);
  if (kind == std::string_view::npos) throw std::invalid_argument("no such piece");
  return PieceOf(static_cast<int>(kind) + 1, small == letter ? Colour::Black : Colour::White);
}

}  // namespace

Coordinate Square(std::string_view name) { return {.Column = name.at(0) - 'a' + 1, .Row = name.at(1) - '0'}; }

ChessPosition Placed(std::string_view pieces, std::string_view castling) {
  ChessPosition position;
  std::istringstream words{std::string(pieces)};
  for (std::string word; words >> word;) position.Board.Put(Square(word.substr(1)), PieceCalled(word.at(0)));
  position.KingSquares = FindKings(position.Board);
  const auto allowed = [castling](char letter) { return castling.find(letter) != std::string_view::npos; };
  position.Castling = {.White = {.Short = allowed('K'), .Long = allowed('Q')},
                       .Black = {.Short = allowed('k'), .Long = allowed('q')}};
  return position;
}

ChessSelection Pick(const ChessPosition& position, std::string_view source) {
  return {.Source = Square(source), .Piece = position.Board.At(Square(source))};
}

std::string TargetsFrom(const ChessPosition& position, std::string_view source) {
  std::vector<std::string> names;
  for (const Coordinate target : GenerateTargets(position, Pick(position, source)).Squares) {
    names.push_back(std::string(1, static_cast<char>('a' + target.Column - 1)) + std::to_string(target.Row));
  }
  std::sort(names.begin(), names.end());
  std::string text;
  for (const std::string& name : names) text += text.empty() ? name : ' ' + name;
  return text;
}

ChessMove Make(ChessPosition& position, std::string_view move) {
  const ChessSelection selection = Pick(position, move.substr(0, 2));
  const Coordinate target = Square(move.substr(2, 2));
  const GeneratedTargets targets = GenerateTargets(position, selection);
  if (!targets.Squares.Holds(target)) throw std::invalid_argument("no target: " + std::string(move));
  std::optional<ChessMove> made = ApplyMove(position, selection, target, targets.Castles);
  if (!made) throw std::invalid_argument("king attacked: " + std::string(move));
  CompleteMove(position, *made, move.size() > 4 ? PieceCalled(move[4]) - kBlackOffset : kNoPiece);
  return *made;
}

ChessMove Play(ChessPosition& position, std::string_view move) {
  const ChessMove made = Make(position, move);
  PassTurn(position);
  return made;
}

std::string Narrow(std::u16string_view text) {
  std::string narrow;
  for (const char16_t c : text) narrow += c < 0x80 ? static_cast<char>(c) : '?';
  return narrow;
}

}  // namespace test
}  // namespace brontavia
