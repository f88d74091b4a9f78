#include "net/connection_flow.h"

#include <QScopedValueRollback>
#include <chrono>
#include <utility>

#include "net/common_messages.h"
#include "net/counted.h"
#include "text/qt_text.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

const QString kLocalHost = u"127.0.0.1"_s;

// A peer can send faster than a person answers boxes. Past this many unfinished reads the rest stays in the socket,
// and TCP holds the peer back.
constexpr int kMaxReadsOnStack = 8;

// The first pause: long enough that the peer normally gets a repeated text once.
constexpr std::chrono::milliseconds kBetweenRepeatedSends{50};

}  // namespace

ConnectionFlow::ConnectionFlow(const WindowTraits& window, const Seams& seams) : window_(window), seams_(seams) {
  guard_.setObjectName(window_.Window.toString());
  connect(&seams_.Connection, &Connection::ConnectionRequest, this, &ConnectionFlow::AnswerRequest);
  connect(&seams_.Connection, &Connection::DataArrival, this, &ConnectionFlow::DataArrived);
  connect(&seams_.Connection, &Connection::SendComplete, this, [this] {
    send_complete_ = true;
    guard_.Wake();
  });
  connect(&seams_.Connection, &Connection::Lost, &guard_, &EventGuard::Wake);
  connect(&guard_, &EventGuard::Ending, &seams_.Dialogs, [this] { seams_.Dialogs.CloseAll(); });
  connect(&seams_.Dialogs, &Dialogs::Answered, this, &ConnectionFlow::BoxAnswered);
  rest_.setSingleShot(true);
  connect(&rest_, &QTimer::timeout, this, &ConnectionFlow::Rested);
  connect(&guard_, &EventGuard::Finished, this, &ConnectionFlow::Finished);
}

void ConnectionFlow::Load() {
  RunHandler([this] {
    const bool server = seams_.Values.PlayerRole == Role::Server;
    seams_.Values.RemoteAddress.clear();
    own_player_ = server ? Player::Server : Player::Client;
    Screen().SetCaption(window_.Caption.toString());
    LoadGame();
    Screen().ShowFrame(Frame::FrJuego, false);
    Screen().ShowFrame(Frame::FrServidor, server);
    Screen().ShowFrame(Frame::FrCliente, !server);
    if (!server) return;
    if (const auto reason = seams_.Connection.Listen(seams_.Values.ConnectionPort)) {
      ShowBox(u"No se puede escuchar en el puerto %1: %2"_s.arg(seams_.Values.ConnectionPort).arg(*reason), u"Error"_s);
      End(AfterWindow::ProcessEndsFailed);
    }
  });
}

// ---- The client connects ----

void ConnectionFlow::CbConectarClicked() {
  RunUserAction([this] {
    QString& address = seams_.Values.RemoteAddress;
    if (window_.Address == AddressBox::BlankMeansLocal && address.isEmpty()) address = u" "_s;
    if (window_.Address == AddressBox::LocalBeforeAsking) address = kLocalHost;
    address = Ask(u"¿Con qué ordenador desea conectar? Introduzca su IP: "_s, u"Conectar"_s);
    if (address.isEmpty()) {
      ShowBox(u"Conexión cancelada"_s, u"Conectar"_s);
      return;
    }
    if (window_.Address == AddressBox::BlankMeansLocal) address = address == u" " ? kLocalHost : TrimBlanks(address);
    ConnectTo(address);
  });
}

void ConnectionFlow::CBConLocalClicked() {
  RunUserAction([this] {
    seams_.Values.RemoteAddress = kLocalHost;
    ConnectTo(seams_.Values.RemoteAddress);
  });
}

void ConnectionFlow::ConnectTo(const QString& host) {
  seams_.Connection.Close();
  seams_.Connection.Connect(host, seams_.Values.ConnectionPort);
}

void ConnectionFlow::CheckAcceptance(const QString& text) {
  Screen().AddMessage(u"Conexión establecida.Listo para jugar."_s);
  if (AcceptsGame(text, window_.GameCode)) {
    Screen().ShowFrame(Frame::FrCliente, false);
    StartSession();
    return;
  }
  StopReading();
  ShowBox(u"Ha elegido un juego diferente que el servidor. La conexión se va a cancelar y la ventana se cerrará"_s,
          u"Error"_s);
  End(AfterWindow::Selection);
}

// ---- The server accepts ----

void ConnectionFlow::AnswerRequest(int request) {
  RunHandler([this, request] {
    const QScopedValueRollback by_peer(handling_peers_event_, true);
    const Button answer = ShowBox(u"Se ha recibido una solicitud de conexión. ¿Desea aceptarla?"_s,
                                  u"Solicitud de conexión"_s, Buttons::OkCancel);
    if (answer != Button::Ok) {
      seams_.Connection.Reject(request);
      return;
    }
    if (!seams_.Connection.Accept(request)) {
      ShowBox(u"El otro jugador ya ha cancelado su solicitud de conexión."_s, u"Solicitud de conexión"_s);
      seams_.Connection.Reject(request);  // only now: the next request would ask under this box
      return;
    }
    pacing_.UserActed();
    Send(AcceptanceText(window_.GameCode));
    Screen().ShowFrame(Frame::FrServidor, false);
    StartSession();
  });
}

// ---- Reading and sending ----

void ConnectionFlow::DataArrived() {
  if (!reading_) return;
  if (reads_on_stack_ == kMaxReadsOnStack || close_question_open_ || !pacing_.MayOpen()) {
    read_waiting_ = true;
    return;
  }
  RunHandler([this] {
    const Counted reading(reads_on_stack_);
    const QScopedValueRollback by_peer(handling_peers_event_, true);
    HandleRead();
  });
  ReadAgain();
}

void ConnectionFlow::ReadAgain() {
  if (!std::exchange(read_waiting_, false)) return;
  QMetaObject::invokeMethod(this, &ConnectionFlow::DataArrived, Qt::QueuedConnection);
}

void ConnectionFlow::HandleRead() {
  const QString text = seams_.Connection.GetData();
  if (text.isEmpty()) return;
  if (text.contains(message::kAccepted.Token)) {
    CheckAcceptance(text);
  } else {
    HandleMessage(text);
  }
}

bool ConnectionFlow::Send(const QString& text) {
  if (seams_.Connection.SendData(text)) return true;
  TellFailedSend();
  return false;
}

void ConnectionFlow::TellFailedSend() {
  if (failure_told_in_event_ == guard_.CurrentEvent()) return;
  failure_told_in_event_ = guard_.CurrentEvent();
  ShowBox(u"No hay conexión con el otro jugador. No se le ha podido enviar su última acción."_s, u"Error"_s);
}

bool ConnectionFlow::SendAndWait(const QString& text) {
  send_complete_ = false;
  const Counted waiting(open_boxes_and_waits_);
  if (!Send(text)) return false;
  ShowState();
  guard_.WaitUntil([this] { return send_complete_ || ConnectionLost(); });
  if (!send_complete_) TellFailedSend();
  return send_complete_;
}

bool ConnectionFlow::SendUntilComplete(const QString& text) {
  send_complete_ = false;
  const Counted waiting(open_boxes_and_waits_);
  // Each pause is twice the last: a text sent sooner than the line acknowledges would keep every send unfinished.
  for (auto pause = kBetweenRepeatedSends; !send_complete_ && Send(text); pause *= 2) {
    guard_.WaitUntil([this] { return send_complete_ || ConnectionLost(); }, pause);
  }
  return send_complete_;
}

// ---- Boxes and the end ----

template <typename Question>
auto ConnectionFlow::Nested(const Question& ask) {
  guard_.LeaveIfEnded();
  ShowState();
  seams_.Connection.Flush();
  const Counted open(open_boxes_and_waits_);
  WaitUntilBoxMayOpen();
  auto answer = ask();
  guard_.LeaveIfEnded();
  return answer;
}

void ConnectionFlow::WaitUntilBoxMayOpen() {
  if (handling_peers_event_) {
    guard_.WaitUntil([this] { return pacing_.MayOpen(); });
    pacing_.Opens();
  }
  rest_.stop();
}

void ConnectionFlow::BoxAnswered() {
  if (seams_.Dialogs.IsShowing()) return;
  if (seams_.FreeBetweenBoxes.count() > 0) {
    rest_.start(seams_.FreeBetweenBoxes);
  } else {
    Rested();
  }
}

void ConnectionFlow::Rested() {
  pacing_.Rested();
  guard_.Wake();
  ReadAgain();
}

Button ConnectionFlow::ShowBox(const QString& text, const QString& title, Buttons buttons) {
  return Nested([&] { return seams_.Dialogs.MessageBox(text, title, buttons); });
}

QString ConnectionFlow::Ask(const QString& prompt, const QString& title, const QString& proposal) {
  QString answer = Nested([&] { return seams_.Dialogs.InputBox(prompt, title, proposal); });
  if (!answer.isEmpty()) pacing_.UserActed();
  return answer;
}

QString ConnectionFlow::AskFileToOpen(const FileQuestion& question) {
  return Nested([&] { return seams_.Dialogs.OpenFile(question); });
}

QString ConnectionFlow::AskFileToSave(const FileQuestion& question) {
  return Nested([&] { return seams_.Dialogs.SaveFile(question); });
}

std::optional<int> ConnectionFlow::PopUp(const QString& menu, const QString& title, const QList<MenuItem>& items) {
  return Nested([&] { return seams_.Dialogs.PopUpMenu(menu, title, items); });
}

void ConnectionFlow::RunHandler(const std::function<void()>& handler) {
  guard_.Run(handler);
  guard_.Run([this] { ShowState(); });
}

void ConnectionFlow::RunUserAction(const std::function<void()>& handler) {
  if (open_boxes_and_waits_ > 0) return;
  pacing_.UserActed();
  RunHandler([&] {
    const QScopedValueRollback by_user(handling_peers_event_, false);
    handler();
  });
  ReadAgain();
}

void ConnectionFlow::CloseRequested() {
  guard_.Run([this] {
    if (close_question_open_) return;
    if (!window_.CloseQuestionTitle) End(AfterWindow::Selection);
    const QScopedValueRollback open(close_question_open_, true);
    const QScopedValueRollback by_user(handling_peers_event_, false);
    const Button answer =
        ShowBox(u"¿Está seguro de que desea salir? La partida se dará por terminada y no se podrá reanudar."_s,
                window_.CloseQuestionTitle->toString(), Buttons::YesNo);
    // "No" does not keep the window: it closes all the same, and the program with it.
    End(answer == Button::Yes ? AfterWindow::Selection : AfterWindow::ProcessEnds);
  });
}

void ConnectionFlow::End(AfterWindow after) {
  if (!Ended()) seams_.Connection.Close();
  guard_.End(after);
  throw WindowEnded{};
}

}  // namespace brontavia
