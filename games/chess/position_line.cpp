#include "games/chess/position_line.h"

#include "games/chess/piece_letters.h"
#include "games/chess/square_text.h"
#include "games/chess/standard_fen.h"
#include "text/decimal.h"

namespace brontavia {
namespace {

constexpr char16_t kRowEnd = u'/';
constexpr char16_t kBlank = u' ';
constexpr char16_t kNothing = u'-';
constexpr char16_t kWhiteToMove = u'B';
constexpr char16_t kBlackToMove = u'N';
// The rows of en passant squares.
constexpr int kBehindWhite = 3;
constexpr int kBehindBlack = 6;

// ---- Writing ----

std::u16string RowText(const ChessBoard& board, int row) {
  std::u16string text;
  int empty = 0;
  const auto end_run = [&] {
    if (empty > 0) text += Decimal(empty);
    empty = 0;
  };
  for (int column = 1; column <= kBoardSide; ++column) {
    const int piece = board.At({column, row});
    if (piece == kNoPiece) {
      ++empty;
    } else {
      end_run();
      text += kSpanishLetters.at(static_cast<std::size_t>(piece) - 1);
    }
  }
  end_run();
  return text + kRowEnd;
}

std::u16string CastlingText(const PerColour<CastleRights>& castling) {
  std::u16string text;
  if (castling.White.Short) text += kSpanishCastling[0];
  if (castling.White.Long) text += kSpanishCastling[1];
  if (castling.Black.Short) text += kSpanishCastling[2];
  if (castling.Black.Long) text += kSpanishCastling[3];
  return text.empty() ? std::u16string(1, kNothing) : text;
}

// ---- Reading ----

// Walks a line from its beginning to its end and finds nothing beyond.
class LineReader {
 public:
  explicit LineReader(std::u16string_view line) : rest_(line) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  // The next character; u'\0' at the end.
  char16_t Take() {
    const char16_t next = rest_.empty() ? u'\0' : rest_.front();
    Skip();
    return next;
  }
  void Skip() { rest_.remove_prefix(rest_.empty() ? 0 : 1); }

  // The text up to the next blank, which is left behind too.
  std::u16string_view TakeField() {
    const std::u16string_view field = rest_.substr(0, rest_.find(kBlank));
    rest_.remove_prefix(field.size());
    Skip();
    return field;
  }

 private:
  std::u16string_view rest_;
};

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// 0 for anything but a digit.
int NumberOf(char16_t c) { return IsDigit(c) ? c - u'0' : 0; }

// The squares that a line sets, one after the other; those beyond the board are passed over.
class BoardFiller {
 public:
  explicit BoardFiller(ChessBoard& board) : board_(board) {}

  void Put(int piece) {
    if (ChessBoard::IsOnBoard(square_)) board_.Put(square_, piece);
    ++square_.Column;
  }
  void EndRow() { square_ = {.Column = 1, .Row = square_.Row - 1}; }
  [[nodiscard]] bool IsComplete() const { return square_.Row < 1; }

 private:
  ChessBoard& board_;
  Coordinate square_{.Column = 1, .Row = kBoardSide};
};

// False when the line ends before the board does.
bool ReadBoard(LineReader& line, std::u16string_view letters, ChessBoard& board) {
  BoardFiller filler(board);
  while (!filler.IsComplete()) {
    if (line.AtEnd()) return false;
    const char16_t next = line.Take();
    if (const std::optional<int> piece = PieceOfLetter(next, letters)) {
      filler.Put(*piece);
    } else if (IsDigit(next)) {
      for (int empty = NumberOf(next); empty > 0; --empty) filler.Put(kNoPiece);
    } else if (next == kRowEnd) {
      filler.EndRow();
    }
  }
  return true;
}

Colour ReadSide(char16_t side, bool english) {
  return side == kBlackToMove || (side == kWhiteToMove && english) ? Colour::Black : Colour::White;
}

PerColour<CastleRights> ReadCastling(std::u16string_view field, std::u16string_view letters) {
  const auto has = [&](std::size_t index) { return field.find(letters[index]) != std::u16string_view::npos; };
  return {.White = {.Short = has(0), .Long = has(1)}, .Black = {.Short = has(2), .Long = has(3)}};
}

// Whether a black pawn stands in `row` beside `column`, which may lie beyond the board.
bool BlackPawnBeside(const ChessBoard& board, int column, int row) {
  const auto stands_in = [&](int beside) {
    const Coordinate square{.Column = beside, .Row = row};
    return ChessBoard::IsOnBoard(square) && board.At(square) == PieceOf(kPawn, Colour::Black);
  };
  return stands_in(column - 1) || stands_in(column + 1);
}

// The letter counts from 0 here, while a line that is written has it count from 1, and a black pawn alone lets either
// side capture. Both copies of a resumed game count on each other to read it so.
void ReadEnPassant(std::u16string_view field, ChessPosition& position) {
  if (field.size() < 2) {
    position.FenEnPassant.reset();
    position.EnPassantSquares = {};
    return;
  }
  const char16_t letter =
      field[0] >= u'A' && field[0] <= u'Z' ? static_cast<char16_t>(field[0] - u'A' + u'a') : field[0];
  const Coordinate square{.Column = letter - u'a', .Row = NumberOf(field[1])};
  position.FenEnPassant = square;
  if (square.Row == kBehindWhite && BlackPawnBeside(position.Board, square.Column, square.Row + 1)) {
    position.EnPassantSquares.Black = square;
  }
  if (square.Row == kBehindBlack && BlackPawnBeside(position.Board, square.Column, square.Row - 1)) {
    position.EnPassantSquares.White = square;
  }
}

}  // namespace

std::u16string PositionLine(const ChessPosition& position) {
  std::u16string line;
  for (int row = kBoardSide; row >= 1; --row) line += RowText(position.Board, row);
  line += position.SideToMove == Colour::White ? kWhiteToMove : kBlackToMove;
  line += kBlank + CastlingText(position.Castling) + kBlank;
  const auto& told = position.FenEnPassant;
  line += told && told->Column != 0 ? SquareName(*told) : std::u16string(1, kNothing);
  return line + kBlank + Decimal(position.HalfMoveClock) + kBlank + Decimal(position.MoveNumber);
}

std::optional<ChessPosition> ReadPosition(std::u16string_view line, const ChessPosition& before) {
  const bool english = line.find(u'K') != std::u16string_view::npos;
  ChessPosition position = before;
  LineReader reader(line);
  if (!ReadBoard(reader, english ? kEnglishLetters : kSpanishLetters, position.Board)) return ReadStandardFen(line);
  position.KingSquares = FindKings(position.Board);
  position.SideToMove = ReadSide(reader.Take(), english);
  reader.Skip();
  position.Castling = ReadCastling(reader.TakeField(), english ? kEnglishCastling : kSpanishCastling);
  ReadEnPassant(reader.TakeField(), position);
  position.HalfMoveClock = static_cast<std::int16_t>(NumberOf(reader.Take()));
  reader.Skip();
  position.MoveNumber = static_cast<std::int16_t>(NumberOf(reader.Take()));
  return position;
}

}  // namespace brontavia
