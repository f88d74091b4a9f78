// The program as it is, with a player who uses it alone: chooses a role and a game, connects over TCP, answers boxes,
// places what is to be placed, and plays to and fro with another copy. Notes when he clicked and when he saw.
//
// usage: played_copy GAME server|client PORT MOVES
// GAME counts from 0, in the order of the list of games. Once MOVES moves have been made it prints, in nanoseconds:
//   opening T           from choosing the game until its window has been painted
//   clicked N T         when move N was made here; N counts the moves of both from 0, and the clock is the system's
//                       monotonic one, which both copies share
//   shown N T           when the board's model had changed by a move of the other copy
//   painted N T         when the board had been painted after that
//   cell T, board T     processor time of painting one cell, and the whole board
//   filled_cell T, filled_board T   of filling the same rectangles in a window of the same size
//   ready
// and stays as it is until it is killed, so that its memory and its idling can be looked at.
#include <QApplication>
#include <QFile>
#include <QInputDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "app/window_owner.h"
#include "benchmarks/plan.h"
#include "ui/accessibility.h"
#include "ui/game_window.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// Between seeing a move and answering it. Varied, so that clicks do not fall into step with any timer.
constexpr int kShortestThought = 15;
constexpr int kLongestThought = 35;
constexpr auto kLongestRun = 3min;
constexpr auto kBetweenChores = 20ms;
// Of what the window has not heeded, because it still waited for the other copy.
constexpr auto kBetweenTries = 1s;
constexpr auto kAfterLastMove = 500ms;
constexpr int kRepaints = 200;

long long Nanoseconds(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}
long long Now() { return Nanoseconds(CLOCK_MONOTONIC); }

// Of painting `part` of `widget` now.
long long RepaintCost(QWidget& widget, const QRect& part) {
  widget.repaint(part);  // what is kept is made
  const long long before = Nanoseconds(CLOCK_THREAD_CPUTIME_ID);
  for (int i = 0; i < kRepaints; ++i) widget.repaint(part);
  return (Nanoseconds(CLOCK_THREAD_CPUTIME_ID) - before) / kRepaints;
}

// Fills the rectangles of a board's cells.
class FilledCells : public QWidget {
 public:
  explicit FilledCells(const BoardView& board, QWidget* parent) : QWidget(parent), board_(board) {}

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    for (int row = 0; row < board_.Model().rowCount(); ++row) {
      for (int column = 0; column < board_.Model().columnCount(); ++column) {
        const QRect cell = board_.CellRect({row, column});
        if (event->region().intersects(cell)) painter.fillRect(cell, (row + column) % 2 == 0 ? Qt::gray : Qt::white);
      }
    }
  }

 private:
  const BoardView& board_;
};

class Copy : public QObject {
 public:
  Copy(int game, Player own, int moves)
      : game_(game), own_(own), moves_(moves), plan_(PlanFor(game, own)), random_(static_cast<unsigned>(game)) {
    qApp->installEventFilter(this);
    // Queued: a chore may open a box, and the timer would not run while it has not returned.
    connect(&chores_, &QTimer::timeout, this, &Copy::DoChores, Qt::QueuedConnection);
    chores_.start(kBetweenChores);
    retry_.setSingleShot(true);
    connect(&retry_, &QTimer::timeout, this, &Copy::Move);
    QTimer::singleShot(kLongestRun, this, [this] {
      if (made_ >= moves_) return;
      std::fprintf(stderr, "the game did not come to its end: %d moves made\n", made_);
      std::_Exit(EXIT_FAILURE);
    });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || !watched->isWidgetType()) return false;
    // Told from the event loop, so after the whole window has been painted.
    auto* widget = static_cast<QWidget*>(watched);
    if (opened_ == 0 && chosen_ != 0 && qobject_cast<GameWindow*>(widget->window()) != nullptr) {
      opened_ = -1;
      QMetaObject::invokeMethod(
          this, [this] { opened_ = Now() - chosen_; }, Qt::QueuedConnection);
    }
    if (watched == watched_ && std::exchange(awaits_paint_, false)) {
      QMetaObject::invokeMethod(this, &Copy::MovePainted, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  // ---- Until the first move ----

  void DoChores() {
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
      AnswerBox(*dialog);
    } else if (window_ == nullptr) {
      ChooseGame();
    } else if (local_->isVisible()) {
      // A new try ends the one before, so each gets its time.
      if (TimeForNextTry()) local_->click();
    } else if (!playing_) {
      if (Log().contains(plan_->Beginning()))
        Begin();
      else if (Log().contains(u"mutua") && TimeForNextTry(3 * kBetweenChores))
        plan_->Place(*board_);
    }
  }

  void AnswerBox(QDialog& dialog) {
    if (auto* input = qobject_cast<QInputDialog*>(&dialog)) {
      if (input->textValue() == u"3")
        input->setTextValue(own_ == Player::Server ? u"1"_s : u"2"_s);  // the server begins
      input->accept();
    } else if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
      const bool begins = !playing_ && box->text().contains(plan_->Beginning());
      auto* yes = box->button(QMessageBox::Yes);
      (yes != nullptr ? yes : box->button(QMessageBox::Ok))->click();
      if (begins) QMetaObject::invokeMethod(this, &Copy::Begin, Qt::QueuedConnection);
    }
  }

  void ChooseGame() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->isVisible()) continue;
      if (auto* game = qobject_cast<GameWindow*>(window)) {
        TakeWindow(*game);
      } else if (auto* list = window->findChild<QListWidget*>(u"List1"_s)) {
        list->setCurrentRow(game_);
        chosen_ = Now();
        Press(*list, Qt::Key_Return);
        return;
      } else if (window->objectName() == u"Form1") {
        window->findChild<QPushButton*>(own_ == Player::Server ? u"Command1(0)"_s : u"Command1(1)"_s)->click();
        return;
      }
    }
  }

  void TakeWindow(GameWindow& window) {
    window_ = &window;
    local_ = window.findChild<QPushButton*>(u"CBConLocal"_s);
    log_ = window.findChild<QPlainTextEdit*>(u"TBMensajes"_s);
    board_ = window.findChild<BoardView*>(u"FG1"_s);
    watched_ = window.findChild<BoardView*>(plan_->WatchedBoard());
    connect(&watched_->Model(), &BoardModel::dataChanged, this, &Copy::CellsChanged);
  }

  [[nodiscard]] QString Log() const { return log_->toPlainText(); }

  bool TimeForNextTry(std::chrono::milliseconds pause = kBetweenTries) {
    if (Now() < next_try_) return false;
    next_try_ = Now() + std::chrono::nanoseconds(pause).count();
    return true;
  }

  void Begin() {
    playing_ = true;
    own_turn_ = own_ == Player::Server;
    if (own_turn_) retry_.start(kBetweenTries);  // the other copy may still have a box to answer
  }

  // ---- The game ----

  void Think() {
    QTimer::singleShot(std::uniform_int_distribution(kShortestThought, kLongestThought)(random_), Qt::PreciseTimer,
                       this, &Copy::Move);
  }

  void Move() {
    if (QApplication::activeModalWidget() != nullptr) {  // whose turn it is
      retry_.start(kBetweenChores);
      return;
    }
    const std::vector<CellIndex> cells = plan_->Move(board_->Model(), own_moves_);
    for (std::size_t i = 0; i + 1 < cells.size(); ++i) Click(*board_, cells[i]);
    Note("clicked", made_, Now());
    own_turn_ = false;
    Click(*board_, cells.back());
    retry_.start(kBetweenTries);
    if (made_ + 1 == moves_) EndGame();
  }

  // A change of a mark is no move.
  void CellsChanged(const QModelIndex& first, const QModelIndex& last) {
    for (int row = first.row(); row <= last.row(); ++row) {
      for (int column = first.column(); column <= last.column(); ++column) {
        const CellIndex cell{row, column};
        if (!plan_->IsWatched(cell)) continue;
        const CellContent& content = watched_->Model().Cell(cell);
        auto now = std::pair(content.Text, content.Drawing);
        if (std::exchange(seen_[{row, column}], now) != now && playing_ && !own_turn_ && !awaits_paint_) MoveShown();
      }
    }
  }

  void MoveShown() {
    retry_.stop();
    if (made_ % 2 != NumberOf(OpponentOf(own_))) {  // the answer says that the own move was heeded
      ++made_;
      ++own_moves_;
    }
    Note("shown", made_, Now());
    awaits_paint_ = true;
  }

  void MovePainted() {
    Note("painted", made_, Now());
    ++made_;
    own_turn_ = true;
    if (made_ == moves_)
      EndGame();
    else
      Think();
  }

  void Note(const char* what, int move, long long time) { notes_[{what, move}] = time; }

  void EndGame() {
    made_ = moves_;
    retry_.stop();
    chores_.stop();
    QTimer::singleShot(kAfterLastMove, this, &Copy::Report);
  }

  // ---- What is printed ----

  void Report() {
    std::printf("opening %lld\n", opened_);
    for (const auto& [note, time] : notes_) std::printf("%s %d %lld\n", note.first.c_str(), note.second, time);
    const QRect cell = board_->CellRect({.Row = 1, .Column = 1});
    std::printf("cell %lld\n", RepaintCost(*board_, cell));
    std::printf("board %lld\n", RepaintCost(*board_, board_->rect()));
    QWidget plain;
    plain.resize(window_->size());
    FilledCells filled(*board_, &plain);
    filled.setGeometry(QRect(board_->mapTo(window_, QPoint()), board_->size()));
    plain.show();
    while (!plain.windowHandle()->isExposed()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::printf("filled_cell %lld\n", RepaintCost(filled, cell));
    std::printf("filled_board %lld\n", RepaintCost(filled, filled.rect()));
    std::puts("ready");
    std::fflush(stdout);
  }

  int game_;
  Player own_;
  int moves_;
  std::unique_ptr<Plan> plan_;
  std::mt19937 random_;
  GameWindow* window_ = nullptr;
  QPushButton* local_ = nullptr;
  QPlainTextEdit* log_ = nullptr;
  BoardView* board_ = nullptr;
  BoardView* watched_ = nullptr;
  QTimer chores_;
  QTimer retry_;
  long long next_try_ = 0;
  long long chosen_ = 0;
  long long opened_ = 0;
  bool playing_ = false;
  bool own_turn_ = false;
  bool awaits_paint_ = false;
  std::size_t own_moves_ = 0;
  int made_ = 0;  // by both
  std::map<std::pair<int, int>, std::pair<QString, int>> seen_;
  std::map<std::pair<std::string, int>, long long> notes_;
};

int Run(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  InstallAccessibility();
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 5) {
    std::fputs("usage: played_copy GAME server|client PORT MOVES\n", stderr);
    return EXIT_FAILURE;
  }
  const QTemporaryDir directory;
  QFile configuration(directory.filePath(u"Brontavia.ini"_s));
  if (!configuration.open(QIODevice::WriteOnly) || configuration.write(arguments[3].toUtf8()) <= 0) return EXIT_FAILURE;
  configuration.close();
  WindowOwner owner(directory.path());
  const Player own = arguments[2] == u"server" ? Player::Server : Player::Client;
  const Copy copy(arguments[1].toInt(), own, arguments[4].toInt());
  owner.ShowStart();
  return QApplication::exec();
}

}  // namespace
}  // namespace brontavia

int main(int argc, char* argv[]) { return brontavia::Run(argc, argv); }
