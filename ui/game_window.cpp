#include "ui/game_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

#include "ui/announcer.h"
#include "ui/board_view.h"
#include "ui/client_frame.h"
#include "ui/server_frame.h"
#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// Of a window that has room for it; a wide board's texts want more.
constexpr QSize kFirstSize(800, 560);
constexpr QSize kFirstSizeOfWide(1080, 760);
constexpr qreal kMostOfScreen = 0.9;
constexpr int kBoardStretch = 5;
constexpr int kTextStretch = 3;
constexpr int kStatusLines = 2;

// A visible caption above a control. The control has its accessible name itself; the caption is for the eye.
void AddCaption(QBoxLayout& layout, QWidget& control) {
  auto* caption = new QLabel(control.accessibleName());
  caption->setBuddy(&control);
  layout.addWidget(caption);
}

}  // namespace

GameWindow::GameWindow(const WindowTraits& window, std::unique_ptr<Connection> connection, TextsAt texts)
    : connection_(std::move(connection)),
      dialogs_(*this),
      server_frame_(new ServerFrame(*connection_)),
      client_frame_(new ClientFrame(ClientInstructions(window))),
      game_frame_(MakeGameFrame(texts)),
      announcer_(new Announcer(this)) {
  setObjectName(window.Window.toString());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(server_frame_);
  layout->addWidget(client_frame_);
  layout->addWidget(game_frame_);
  // The flow shows what the role needs; frames that show together would make the window grow.
  for (QGroupBox* frame : std::initializer_list<QGroupBox*>{server_frame_, client_frame_, game_frame_}) frame->hide();
  const QSize most = screen()->availableSize() * kMostOfScreen;
  resize((texts == TextsAt::Right ? kFirstSize : kFirstSizeOfWide).boundedTo(most));
}

Seams GameWindow::MakeSeams(ProcessValues& values) {
  return {.Connection = *connection_, .Dialogs = dialogs_, .Screen = *this, .Values = values};
}

void GameWindow::Attach(ConnectionFlow& flow, BoardView& board) {
  flow_ = &flow;
  board_ = &board;
  board_->setObjectName(u"FG1"_s);
  board_->setAccessibleName(u"Tablero"_s);
  board_column_->insertWidget(0, board_, 1);
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

QGroupBox* GameWindow::MakeGameFrame(TextsAt texts) {
  auto* frame = new QGroupBox;
  frame->setObjectName(u"FrJuego"_s);
  board_column_ = new QVBoxLayout;
  text_column_ = new QVBoxLayout;
  auto* status_column = new QVBoxLayout;
  if (texts == TextsAt::Right) {
    auto* columns = new QHBoxLayout(frame);
    columns->addLayout(board_column_, kBoardStretch);
    columns->addLayout(text_column_, kTextStretch);
    board_column_->addLayout(status_column);
  } else {
    auto* rows = new QVBoxLayout(frame);
    auto* boxes = new QHBoxLayout;
    rows->addLayout(board_column_, 1);
    rows->addLayout(boxes);
    boxes->addLayout(status_column, 1);
    boxes->addLayout(text_column_, 1);
  }
  auto* status = new TextBox(u"TBEstado"_s, u"Estado"_s);
  status->SetMinimumLines(kStatusLines);
  if (texts == TextsAt::Right) status->setFixedHeight(status->minimumHeight());
  boxes_[Box::TBEstado] = status;
  AddCaption(*status_column, *status);
  status_column->addWidget(status);
  AddTextBox(Box::TBMensajes, u"TBMensajes"_s, u"Mensajes"_s, 1)->SetMinimumLines(kStatusLines);
  return frame;
}

TextBox* GameWindow::AddTextBox(Box box, const QString& name, const QString& accessible_name, int stretch) {
  auto* text_box = new TextBox(name, accessible_name);
  boxes_[box] = text_box;
  AddCaption(*text_column_, *text_box);
  text_column_->addWidget(text_box, stretch);
  return text_box;
}

void GameWindow::AddBoard(BoardView& board, int stretch) {
  AddCaption(*text_column_, board);
  text_column_->addWidget(&board, stretch);
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
  box->setVisible(visible);
  box->setEnabled(visible);
  if (frame == Frame::FrJuego && menu_bar_ != nullptr) menu_bar_->setVisible(visible);
  if (visible && frame == Frame::FrJuego) board_->setFocus();
}

void GameWindow::SetText(Box box, const QString& text) {
  boxes_.at(box)->SetText(text);
  if (box == Box::TBEstado || box == Box::TBMensajes) announcer_->Announce(text);
}

void GameWindow::AppendText(Box box, const QString& text) { boxes_.at(box)->AppendText(text); }

void GameWindow::AddMessage(const QString& line) {
  boxes_.at(Box::TBMensajes)->AddLine(line);
  announcer_->Announce(line);
}

void GameWindow::Beep() { QApplication::beep(); }

void GameWindow::PlaySound(MediaPlayer player, const QString& file) {
  sounds_[player].Play(QDir(QApplication::applicationDirPath()).filePath(file));
}

}  // namespace brontavia
