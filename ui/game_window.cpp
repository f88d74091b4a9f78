#include "ui/game_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QGroupBox>
#include <QMenuBar>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

#include "ui/board_view.h"
#include "ui/client_frame.h"
#include "ui/full_screen.h"
#include "ui/game_frame.h"
#include "ui/look.h"
#include "ui/server_frame.h"
#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kFirstSize(1080, 760);
constexpr qreal kMostOfScreen = 0.9;
constexpr int kMargin = 16;  // around the frames that guide the connection; the game frame has its own
constexpr int kMessageLines = 3;

}  // namespace

GameWindow::GameWindow(const WindowTraits& window, std::unique_ptr<Connection> connection)
    : connection_(std::move(connection)),
      dialogs_(*this),
      server_frame_(new ServerFrame(*connection_)),
      client_frame_(new ClientFrame(ClientInstructions(window))),
      waiting_frame_(std::make_unique<GameFrame>()),
      game_frame_(waiting_frame_.get()),
      announcer_(*this) {
  setObjectName(window.Window.toString());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  // The flow shows what the role needs; frames that show together would make the window grow.
  for (QGroupBox* frame : std::initializer_list<QGroupBox*>{server_frame_, client_frame_}) {
    layout->addWidget(frame);
    frame->hide();
  }
  boxes_[Box::TBEstado] = game_frame_->Status();
  AddLog(Box::TBMensajes, u"TBMensajes"_s, u"Mensajes"_s, kMessageLines);
  LetF11FillTheScreen(*this);
  setMinimumSize(look::SmallestWindow(font()));
  resize(kFirstSize.boundedTo(screen()->availableSize() * kMostOfScreen));
}

GameWindow::~GameWindow() = default;

Seams GameWindow::MakeSeams(ProcessValues& values) {
  return {.Connection = *connection_, .Dialogs = dialogs_, .Screen = *this, .Values = values};
}

void GameWindow::Attach(ConnectionFlow& flow, BoardView& board) {
  flow_ = &flow;
  board_ = &board;
  board_->setObjectName(u"FG1"_s);
  board_->setAccessibleName(u"Tablero"_s);
  game_frame_->SetBoard(board);
  connect(&board, &BoardView::CellSpoken, &announcer_, &Announcer::Heard);
  server_frame_->SetPort(flow_->Port());
  connect(client_frame_, &ClientFrame::CbConectarClicked, flow_, &ConnectionFlow::CbConectarClicked);
  connect(client_frame_, &ClientFrame::CBConLocalClicked, flow_, &ConnectionFlow::CBConLocalClicked);
  connect(flow_, &ConnectionFlow::Finished, this, &GameWindow::Finished);
}

void GameWindow::Load() { flow_->Load(); }

void GameWindow::closeEvent(QCloseEvent* event) {
  // The owner destroys the window once the flow has finished; until then it stays.
  event->ignore();
  flow_->CloseRequested();
}

// ---- Frames ----

TextBox* GameWindow::AddLog(Box box, const QString& name, const QString& accessible_name, int lines) {
  return boxes_[box] = game_frame_->AddLog(name, accessible_name, lines);
}

TextBox* GameWindow::AddTable(Box box, const QString& name, const QString& accessible_name, int lines) {
  return boxes_[box] = game_frame_->AddTable(name, accessible_name, lines);
}

void GameWindow::AddSmallBoard(BoardView& board) {
  game_frame_->SetSmallBoard(board);
  connect(&board, &BoardView::CellSpoken, &announcer_, &Announcer::Heard);
}

QMenuBar* GameWindow::AddMenuBar() {
  menu_bar_ = new QMenuBar;
  layout()->setMenuBar(menu_bar_);
  menu_bar_->hide();
  return menu_bar_;
}

// ---- What the flow shows ----

void GameWindow::SetCaption(const QString& caption) { setWindowTitle(caption); }

void GameWindow::ShowFrame(Frame frame, bool visible) {
  QGroupBox* box = nullptr;
  switch (frame) {
    case Frame::FrServidor:
      box = server_frame_;
      break;
    case Frame::FrCliente:
      box = client_frame_;
      break;
    case Frame::FrJuego:
      box = game_frame_;
      break;
  }
  if (box == game_frame_ && waiting_frame_) layout()->addWidget(waiting_frame_.release());
  if (visible) {
    const int margin = frame == Frame::FrJuego ? 0 : kMargin;
    layout()->setContentsMargins(margin, margin, margin, margin);
  }
  box->setVisible(visible);
  box->setEnabled(visible);
  if (frame == Frame::FrJuego && menu_bar_ != nullptr) menu_bar_->setVisible(visible);
  if (visible && frame == Frame::FrJuego) board_->setFocus();
  const auto* guide = qobject_cast<const GuideFrame*>(box);
  if (visible) announcer_.AnnounceOnArrival(guide != nullptr ? guide->Guidance() : QString());
}

void GameWindow::SetText(Box box, const QString& text) {
  boxes_.at(box)->SetText(text);
  if (box == Box::TBEstado || box == Box::TBMensajes) announcer_.Replace(*boxes_.at(box), text);
}

void GameWindow::AppendText(Box box, const QString& text) { boxes_.at(box)->AppendText(text); }

void GameWindow::AddMessage(const QString& line) {
  boxes_.at(Box::TBMensajes)->AddLine(line);
  announcer_.Add(*boxes_.at(Box::TBMensajes), line);
}

void GameWindow::Announce(const QString& sentence) { announcer_.Announce(sentence); }

void GameWindow::ShowScoreboard(const Scoreboard& scoreboard) { game_frame_->ShowScoreboard(scoreboard); }

void GameWindow::ShowKeys(const KeyHints& keys) { game_frame_->ShowKeys(keys); }

void GameWindow::ShowBoardCaption(const QString& caption, PlayerSign owner) {
  game_frame_->ShowBoardCaption(caption, owner);
}

void GameWindow::Beep() { QApplication::beep(); }

void GameWindow::PlaySound(MediaPlayer player, const QString& file) {
  sounds_[player].Play(QDir(QApplication::applicationDirPath()).filePath(file));
}

}  // namespace brontavia
