// One of two copies of three in a row that play each other over TCP and note when they clicked and when they saw.
//
// usage: click_latency server|client PORT MOVES
// Prints, once MOVES moves have been made, one line for each: "clicked N NANOSECONDS" for an own move,
// "shown N NANOSECONDS" (the board's model has changed) and "painted N NANOSECONDS" for one of the other copy. N counts
// the moves of both from 0; the clock is the system's monotonic one, which both copies share.
#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "games/three_in_row/form_ter.h"
#include "net/tcp_connection.h"
#include "ui/accessibility.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// Neither player's pieces ever make a line: each places three and then moves the third to and fro.
struct Plan {
  QString Symbol;
  std::array<int, 2> Fixed;
  std::array<int, 2> Shuttle;
};
const PerPlayer<Plan> kPlans{Plan{.Symbol = u"X"_s, .Fixed = {0, 1}, .Shuttle = {5, 8}},
                             Plan{.Symbol = u"O"_s, .Fixed = {2, 4}, .Shuttle = {3, 7}}};

// Between seeing a move and answering it. Varied, so that clicks do not fall into step with any timer.
constexpr int kShortestThought = 15;
constexpr int kLongestThought = 35;
constexpr auto kLongestRun = 2min;
constexpr auto kBetweenChores = 20ms;
constexpr int kChoresBetweenTries = 50;

long long Now() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

class Copy : public QObject {
 public:
  Copy(Role role, std::int32_t port, int moves)
      : own_(role == Role::Server ? Player::Server : Player::Client),
        moves_(moves),
        values_{.ConnectionPort = port, .PlayerRole = role} {
    connect(&chores_, &QTimer::timeout, this, &Copy::DoChores);
    chores_.start(kBetweenChores);
    QTimer::singleShot(kLongestRun, this, [] {
      std::fputs("the game did not come to its end\n", stderr);
      std::exit(EXIT_FAILURE);
    });
    form_.show();
    form_.Load();
    board_ = form_.findChild<BoardView*>(u"FG1"_s);
    board_->installEventFilter(this);
    connect(&board_->Model(), &BoardModel::dataChanged, this, &Copy::CellChanged);
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    // Told from the event loop, so after the whole window has been painted.
    if (event->type() == QEvent::Paint && std::exchange(awaits_paint_, false)) {
      QMetaObject::invokeMethod(this, &Copy::MovePainted, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  // Answers boxes, asks for the connection and makes the first move of all.
  void DoChores() {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      box->defaultButton()->click();
    } else if (auto* input = qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) {
      if (input->textValue() == u"3"_s)
        input->setTextValue(own_ == Player::Server ? u"1"_s : u"2"_s);  // the server begins
      input->accept();
    } else if (auto* local = form_.findChild<QPushButton*>(u"CBConLocal"_s); local->isVisible()) {
      // A new try ends the one before, so each gets its time.
      if (chores_done_++ % kChoresBetweenTries == 0) local->click();
    } else if (form_.findChild<QPlainTextEdit*>(u"TBMensajes"_s)->toPlainText().contains(u"mutua"_s)) {
      chores_.stop();
      if (own_ == Player::Server) Think();
    }
  }

  void Think() {
    QTimer::singleShot(std::uniform_int_distribution(kShortestThought, kLongestThought)(random_), Qt::PreciseTimer,
                       this, &Copy::Move);
  }

  void Move() {
    const Plan& plan = kPlans[own_];
    const std::size_t turn = own_moves_++;
    if (turn >= 3) Click(plan.Shuttle.at((turn + 1) % 2));
    Note("clicked", Now());
    Click(turn < 2 ? plan.Fixed.at(turn) : plan.Shuttle.at(turn % 2));
    Finish();
  }

  void Click(int cell) {
    const QPointF centre = board_->CellRect({cell / kTerSide, cell % kTerSide}).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, centre, board_->mapToGlobal(centre), Qt::LeftButton,
                        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
      QApplication::sendEvent(board_, &event);
    }
  }

  void CellChanged(const QModelIndex& cell) {
    if (cell.data().toString() != kPlans[OpponentOf(own_)].Symbol) return;
    Note("shown", Now());
    awaits_paint_ = true;
  }

  void MovePainted() {
    Note("painted", Now());
    Finish();
    Think();
  }

  void Note(const char* what, long long time) { notes_.push_back({what, made_, time}); }

  // A move has been made here or has arrived.
  void Finish() {
    if (++made_ != moves_) return;
    for (const auto& note : notes_) std::printf("%s %d %lld\n", note.What, note.Move, note.Time);
    std::fflush(stdout);
    // Meanwhile the game goes on, so that the other copy sees the last move too.
    QTimer::singleShot(500ms, qApp, [] { std::_Exit(EXIT_SUCCESS); });
  }

  struct Noted {
    const char* What;
    int Move;
    long long Time;
  };

  Player own_;
  int moves_;
  ProcessValues values_;
  FormTER form_{values_, std::make_unique<TcpConnection>()};
  BoardView* board_ = nullptr;
  QTimer chores_;
  int chores_done_ = 0;
  std::mt19937 random_{static_cast<unsigned>(NumberOf(own_))};
  std::size_t own_moves_ = 0;
  int made_ = 0;  // by both
  bool awaits_paint_ = false;
  std::vector<Noted> notes_;
};

}  // namespace
}  // namespace brontavia

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  brontavia::InstallAccessibility();
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) {
    std::fputs("usage: click_latency server|client PORT MOVES\n", stderr);
    return EXIT_FAILURE;
  }
  const auto role = arguments[1] == u"server" ? brontavia::Role::Server : brontavia::Role::Client;
  const brontavia::Copy copy(role, arguments[2].toInt(), arguments[3].toInt());
  return QApplication::exec();
}
