// The least that a click in one copy costs until the other has painted it: one of two programs that send each other one
// byte over TCP and paint one cell when it comes.
//
// usage: bare_click server|client PORT MOVES
// Prints "clicked N T" and "painted N T" as played_copy does, and "ready", and stays until it is killed.
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr QSize kWindow(1080, 780);  // as large as the window of a game
constexpr QRect kCell(300, 200, 68, 48);
constexpr int kShortestThought = 15;  // as in played_copy
constexpr int kLongestThought = 35;
constexpr auto kBetweenTries = 100ms;

long long Now() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

class Window : public QWidget {
 public:
  Window(bool server, quint16 port, int moves) : server_(server), port_(port), moves_(moves) {
    resize(kWindow);
    if (server) {
      listener_.listen(QHostAddress::LocalHost, port);
      connect(&listener_, &QTcpServer::newConnection, this, [this] { Use(listener_.nextPendingConnection()); });
    } else {
      Connect();
    }
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.fillRect(event->rect(), made_ % 2 == 0 ? Qt::gray : Qt::white);
    if (std::exchange(awaits_paint_, false))
      QMetaObject::invokeMethod(this, &Window::MovePainted, Qt::QueuedConnection);
  }

  void mouseReleaseEvent(QMouseEvent* /*event*/) override {
    socket_->putChar('x');
    update(kCell);
  }

 private:
  void Connect() {
    auto* socket = new QTcpSocket(this);
    connect(socket, &QTcpSocket::connected, this, [this, socket] { Use(socket); });
    connect(socket, &QTcpSocket::errorOccurred, this, [this, socket] {
      socket->deleteLater();
      QTimer::singleShot(kBetweenTries, this, &Window::Connect);
    });
    socket->connectToHost(QHostAddress(QHostAddress::LocalHost), port_);
  }

  void Use(QTcpSocket* socket) {
    socket_ = socket;
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(socket_, &QTcpSocket::readyRead, this, [this] {
      socket_->readAll();
      awaits_paint_ = true;
      update(kCell);
    });
    if (server_) Think();
  }

  void Think() {
    QTimer::singleShot(std::uniform_int_distribution(kShortestThought, kLongestThought)(random_), Qt::PreciseTimer,
                       this, &Window::Move);
  }

  void Move() {
    std::printf("clicked %d %lld\n", made_, Now());
    QMouseEvent event(QEvent::MouseButtonRelease, kCell.center(), mapToGlobal(QPointF(kCell.center())), Qt::LeftButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(this, &event);
    ++made_;
    EndAtLast();
  }

  void MovePainted() {
    std::printf("painted %d %lld\n", made_++, Now());
    if (!EndAtLast()) Think();
  }

  bool EndAtLast() {
    if (made_ < moves_) return false;
    std::puts("ready");
    std::fflush(stdout);
    return true;
  }

  bool server_;
  quint16 port_;
  int moves_;
  QTcpServer listener_;
  QTcpSocket* socket_ = nullptr;
  std::mt19937 random_{1};
  int made_ = 0;  // by both
  bool awaits_paint_ = false;
};

}  // namespace

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) {
    std::fputs("usage: bare_click server|client PORT MOVES\n", stderr);
    return EXIT_FAILURE;
  }
  Window window(arguments[1] == QStringLiteral("server"), arguments[2].toUShort(), arguments[3].toInt());
  window.show();
  return QApplication::exec();
}
