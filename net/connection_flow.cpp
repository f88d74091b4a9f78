#include "net/connection_flow.h"

#include <chrono>

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
  connect(&guard_, &EventGuard::Ending, this, [this] { seams_.Dialogs.CloseAll(); });
  connect(&guard_, &EventGuard::Finished, this, &ConnectionFlow::Finished);
}

void ConnectionFlow::Load() {
  guard_.Run([this] {
    const bool server = seams_.Values.PlayerRole == Role::Server;
    seams_.Values.RemoteAddress.clear();
    own_player_ = server ? 0 : 1;
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
    if (Ended()) return;
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
  guard_.Run([this, request] {
    const Button answer = ShowBox(u"Se ha recibido una solicitud de conexión. ¿Desea aceptarla?"_s,
                                  u"Solicitud de conexión"_s, Buttons::OkCancel);
    if (Ended()) return;
    if (answer != Button::Ok) {
      seams_.Connection.Reject(request);
      return;
    }
    if (!seams_.Connection.Accept(request)) {
      ShowBox(u"El otro jugador ya ha cancelado su solicitud de conexión."_s, u"Solicitud de conexión"_s);
      return;
    }
    Send(AcceptanceText(window_.GameCode));
    if (Ended()) return;
    Screen().ShowFrame(Frame::FrServidor, false);
    StartSession();
  });
}

// ---- Reading and sending ----

void ConnectionFlow::DataArrived() {
  if (!reading_) return;
  if (reads_on_stack_ == kMaxReadsOnStack) {
    read_waiting_ = true;
    return;
  }
  guard_.Run([this] {
    {
      const Counted reading(reads_on_stack_);
      HandleRead();
    }
    if (!read_waiting_ || Ended()) return;
    read_waiting_ = false;
    QMetaObject::invokeMethod(this, &ConnectionFlow::DataArrived, Qt::QueuedConnection);
  });
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
  if (failure_told_in_event_ != guard_.OutermostEvent()) {
    failure_told_in_event_ = guard_.OutermostEvent();
    ShowBox(u"No hay conexión con el otro jugador. No se le ha podido enviar su última acción."_s, u"Error"_s);
  }
}

bool ConnectionFlow::SendAndWait(const QString& text) {
  send_complete_ = false;
  const Counted waiting(open_boxes_and_waits_);
  if (!Send(text)) return false;
  guard_.WaitUntil([this] { return send_complete_ || ConnectionLost(); });
  if (!send_complete_ && !Ended()) TellFailedSend();
  return send_complete_ && !Ended();
}

void ConnectionFlow::SendUntilComplete(const QString& text) {
  send_complete_ = false;
  const Counted waiting(open_boxes_and_waits_);
  // Each pause is twice the last: a text sent sooner than the line acknowledges would keep every send unfinished.
  for (auto pause = kBetweenRepeatedSends; !send_complete_ && !Ended() && Send(text); pause *= 2) {
    guard_.WaitUntil([this] { return send_complete_ || ConnectionLost(); }, pause);
  }
}

// ---- Boxes and the end ----

Button ConnectionFlow::ShowBox(const QString& text, const QString& title, Buttons buttons) {
  seams_.Connection.Flush();
  const Counted open(open_boxes_and_waits_);
  return seams_.Dialogs.MessageBox(text, title, buttons);
}

QString ConnectionFlow::Ask(const QString& prompt, const QString& title, const QString& proposal) {
  seams_.Connection.Flush();
  const Counted open(open_boxes_and_waits_);
  return seams_.Dialogs.InputBox(prompt, title, proposal);
}

QString ConnectionFlow::AskFileToOpen(const FileQuestion& question) {
  seams_.Connection.Flush();
  const Counted open(open_boxes_and_waits_);
  return seams_.Dialogs.OpenFile(question);
}

QString ConnectionFlow::AskFileToSave(const FileQuestion& question) {
  seams_.Connection.Flush();
  const Counted open(open_boxes_and_waits_);
  return seams_.Dialogs.SaveFile(question);
}

std::optional<int> ConnectionFlow::PopUp(const QString& menu, const QString& title, const QList<MenuItem>& items) {
  seams_.Connection.Flush();
  const Counted open(open_boxes_and_waits_);
  return seams_.Dialogs.PopUpMenu(menu, title, items);
}

void ConnectionFlow::RunUserAction(const std::function<void()>& handler) {
  if (open_boxes_and_waits_ == 0) guard_.Run(handler);
}

void ConnectionFlow::CloseRequested() {
  guard_.Run([this] {
    if (close_question_open_) return;
    if (!window_.CloseQuestionTitle) {
      End(AfterWindow::Selection);
      return;
    }
    close_question_open_ = true;
    const Button answer =
        ShowBox(u"¿Está seguro de que desea salir? La partida se dará por terminada y no se podrá reanudar."_s,
                window_.CloseQuestionTitle->toString(), Buttons::YesNo);
    close_question_open_ = false;
    // "No" does not keep the window: it closes all the same, and the program with it.
    End(answer == Button::Yes ? AfterWindow::Selection : AfterWindow::ProcessEnds);
  });
}

void ConnectionFlow::End(AfterWindow after) {
  if (!Ended()) seams_.Connection.Close();
  guard_.End(after);
}

}  // namespace brontavia
