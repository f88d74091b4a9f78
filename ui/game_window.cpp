#include "ui/game_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/announcer.h"
#include "ui/board_view.h"
#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kFirstSize(800, 560);
constexpr int kBoardStretch = 5;
constexpr int kTextStretch = 3;
constexpr int kStatusLines = 3;

// A visible caption above a text box. The box itself has its accessible name, so the caption is for the eye alone.
void AddCaptioned(QBoxLayout& layout, TextBox& box, int stretch) {
  auto* caption = new QLabel(box.accessibleName());
  caption->setBuddy(&box);
  layout.addWidget(caption);
  layout.addWidget(&box, stretch);
}

}  // namespace

GameWindow::GameWindow(const WindowTraits& window)
    : dialogs_(*this),
      server_frame_(MakeServerFrame()),
      client_frame_(MakeClientFrame(window)),
      game_frame_(MakeGameFrame()),
      announcer_(new Announcer(this)) {
  setObjectName(window.Window.toString());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(server_frame_);
  layout->addWidget(client_frame_);
  layout->addWidget(game_frame_);
  resize(kFirstSize);
}

Seams GameWindow::MakeSeams(ProcessValues& values) {
  return {.Connection = connection_, .Dialogs = dialogs_, .Screen = *this, .Values = values};
}

void GameWindow::Attach(ConnectionFlow& flow, BoardView& board) {
  flow_ = &flow;
  board_ = &board;
  game_layout_->insertWidget(0, board_, kBoardStretch);
  connect(findChild<QPushButton*>(u"CbConectar"_s), &QPushButton::clicked, flow_, &ConnectionFlow::CbConectarClicked);
  connect(findChild<QPushButton*>(u"CBConLocal"_s), &QPushButton::clicked, flow_, &ConnectionFlow::CBConLocalClicked);
  connect(flow_, &ConnectionFlow::Finished, this, &GameWindow::Finished);
}

void GameWindow::Load() { flow_->Load(); }

void GameWindow::closeEvent(QCloseEvent* event) {
  // The owner destroys the window once the flow has finished; until then it stays.
  event->ignore();
  flow_->CloseRequested();
}

// ---- Frames ----

QGroupBox* GameWindow::MakeServerFrame() {
  auto* frame = new QGroupBox(u"SERVIDOR"_s);
  frame->setObjectName(u"FrServidor"_s);
  auto* text = new TextBox(u"TbServ1"_s, u"Instrucciones"_s);
  text->SetText(kServerInstructions.toString());
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(text);
  return frame;
}

QGroupBox* GameWindow::MakeClientFrame(const WindowTraits& window) {
  auto* frame = new QGroupBox(u"CLIENTE"_s);
  frame->setObjectName(u"FrCliente"_s);
  auto* text = new TextBox(u"TbCli1"_s, u"Instrucciones"_s);
  text->SetText(ClientInstructions(window));
  auto* connect_here = new QPushButton(u"CONEXIÓN LOCAL"_s);
  connect_here->setObjectName(u"CBConLocal"_s);
  auto* connect_there = new QPushButton(u"CONECTAR"_s);
  connect_there->setObjectName(u"CbConectar"_s);
  connect_here->setAutoDefault(true);
  connect_there->setAutoDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(connect_here);
  buttons->addWidget(connect_there);
  auto* layout = new QVBoxLayout(frame);
  layout->addLayout(buttons);
  layout->addWidget(text);
  return frame;
}

QGroupBox* GameWindow::MakeGameFrame() {
  auto* frame = new QGroupBox;
  frame->setObjectName(u"FrJuego"_s);
  status_ = new TextBox(u"TBEstado"_s, u"Estado"_s);
  status_->SetMinimumLines(kStatusLines);
  messages_ = new TextBox(u"TBMensajes"_s, u"Mensajes"_s);
  auto* texts = new QVBoxLayout;
  AddCaptioned(*texts, *status_, 0);
  AddCaptioned(*texts, *messages_, 1);
  status_->setFixedHeight(status_->minimumHeight());
  game_layout_ = new QHBoxLayout(frame);
  game_layout_->addLayout(texts, kTextStretch);
  return frame;
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
  if (visible && frame == Frame::FrJuego) board_->setFocus();
}

void GameWindow::SetStatus(const QString& text) {
  status_->SetText(text);
  announcer_->Announce(text);
}

void GameWindow::AddMessage(const QString& line) {
  messages_->AddLine(line);
  announcer_->Announce(line);
}

void GameWindow::ClearMessages() { messages_->SetText({}); }

void GameWindow::Beep() { QApplication::beep(); }

}  // namespace brontavia
