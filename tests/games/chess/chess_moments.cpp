#include "tests/games/chess/chess_moments.h"

#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>
#include <iterator>

namespace brontavia::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAcknowledgement = 20;  // milliseconds that a send is waited for

const QString kFileLine = u"7r/P7/8/8/8/8/8/R7/B - - 0 1"_s;       // White promotes next
const QString kBlackPromotes = u"r7/8/8/8/8/8/p7/7R/N - - 0 1"_s;  // Black does

}  // namespace

Ana::Ana() {
  Pair.Connect();
  QObject::disconnect(&Pair.Client.Connection, &Connection::DataArrival, nullptr, nullptr);
}

void Ana::Receive(const QString& text) {
  Copy.Connection.Receive(text);
  Pair.Settle();
}

void Ana::Run(ChessCommand command) {
  Copy.Flow.Run(command);
  Pair.Settle();
}

void Ana::Move(const QString& move) {
  Copy.Click(move.left(2));
  Copy.Click(move.mid(2));
  Pair.Settle();
}

void Ana::WinBy(const QString& message, const QString& told, const Meanwhile& meanwhile) {
  Copy.Dialogs.Expect({}, told, [this, meanwhile] {
    if (meanwhile) meanwhile();
    if (!Copy.Flow.Ended()) Copy.Dialogs.Expect({}, box::kGameWon);
  });
  Receive(message);
}

void Ana::BeFree() {
  Copy.Dialogs.Expect(box::kFreeModeTitle, box::kFreeModeQuestion, Button::Yes);
  Run(ChessCommand::FreeMode);
}

void Ana::ExpectFile(const Meanwhile& meanwhile) {
  const QString path = Files.InFolder(u"w.fen"_s);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(kFileLine.toLatin1() + "\r\n");
  Copy.Dialogs.ExpectFile({.Title = u"Abrir partida "_s,
                           .Filter = u"Notación FEN (*.fen)|*.fen|Todos los archivos (*.*)|*.*"_s,
                           .Path = Files.Folder()},
                          path, meanwhile);
}

void Ana::ExpectOffer(const Meanwhile& meanwhile) {
  Copy.Dialogs.Expect({},
                      u"Se ha enviado a Luis un mensaje preguntándole si desea continuar jugando contra usted la "
                      u"partida w.fen. Si responde que sí, se cargará automáticamente la partida."_s,
                      meanwhile);
}

void Ana::WhileWaiting(const Meanwhile& meanwhile) {
  Copy.Connection.AcknowledgeAfter = kAcknowledgement;
  QMetaObject::invokeMethod(
      &Copy.Flow,
      [this, meanwhile] {
        meanwhile();
        // The test's own turns of the event loop have taken the wait's call to end.
        QMetaObject::invokeMethod(
            &Copy.Flow, [] {}, Qt::QueuedConnection);
      },
      Qt::QueuedConnection);
}

namespace {

void PromotionWaits(Ana& ana, const Meanwhile& meanwhile) {
  ana.Receive(u"datospartida|"_s + kFileLine);
  ana.Copy.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Dama"_s, meanwhile);
  ana.Move(u"a7a8"_s);
}

void ReceivedPromotionWaits(Ana& ana, const Meanwhile& meanwhile) {
  ana.Receive(u"datospartida|"_s + kBlackPromotes);
  ana.Copy.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Caballo"_s, meanwhile);
  ana.Receive(u"JUG|1 2 1 1 False 5"_s);
}

void ResumeOfferTravels(Ana& ana, const Meanwhile& meanwhile) {
  ana.ExpectFile();
  ana.WhileWaiting([&ana, meanwhile] {
    meanwhile();
    if (!ana.Copy.Flow.Ended()) ana.ExpectOffer();
  });
  ana.Run(ChessCommand::OpenGame);
}

void PositionTravels(Ana& ana, const Meanwhile& meanwhile) {
  ana.ExpectFile();
  ana.ExpectOffer();
  ana.Run(ChessCommand::OpenGame);
  ana.Copy.Dialogs.AnswerInput = [](const QString&) { return u"1"_s; };
  ana.Copy.Connection.Receive(u"cargpsi|"_s);
  ana.WhileWaiting(meanwhile);
  ana.Pair.Settle();
}

void ColoursAreAsked(Ana& ana, const Meanwhile& meanwhile) {
  ana.ExpectFile();
  ana.ExpectOffer();
  ana.Run(ChessCommand::OpenGame);
  ana.Copy.Dialogs.ExpectInput(u"Asignación de bandos"_s, u"¿Quién juega con blancas?: 1=Yo, 2=El otro jugador"_s, {},
                               u"1"_s, meanwhile);
  ana.Receive(u"cargpsi|"_s);
}

const std::vector<Moment> kMoments{
    {"OwnTurn", [](Ana&, const Meanwhile& meanwhile) { meanwhile(); }},
    {"OtherTurn",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Move(u"e2e4"_s);
       meanwhile();
     }},
    {"PiecePickedUp",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Copy.Click(u"e2"_s);
       meanwhile();
     }},
    {"DrawOffered",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Run(ChessCommand::OfferDraw);
       meanwhile();
     }},
    {"GameOver",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.WinBy(u"JMate|"_s, u"Luis se ha declarado en jaque mate."_s);
       meanwhile();
     }},
    {"PromotionWaits", PromotionWaits, true},
    {"ReceivedPromotionWaits", ReceivedPromotionWaits, true},
    {"DrawQuestionOpen",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Copy.Dialogs.Expect(box::kDrawTitle, box::kDrawQuestion, Button::No, meanwhile);
       ana.Receive(u"SolTablas|"_s);
     },
     true},
    {"ResumeOfferTravels", ResumeOfferTravels, true},
    {"ResumeOfferTold",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.ExpectFile();
       ana.ExpectOffer(meanwhile);
       ana.Run(ChessCommand::OpenGame);
     },
     true},
    {"PositionTravels", PositionTravels, true},
    {"ColoursAsked", ColoursAreAsked, true},
    {"ResumeQuestionOpen",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Copy.Dialogs.Expect(
           box::kResumeTitle,
           u"Luis desea reanudar la partida x.fen . ¿Quiere usted también continuar jugando esa partida?"_s, Button::No,
           meanwhile);
       ana.Receive(u"cargpartida|x.fen"_s);
     },
     true},
    {"FileDialogOpen",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.ExpectFile([&ana, meanwhile] {
         meanwhile();
         if (!ana.Copy.Flow.Ended()) ana.ExpectOffer();
       });
       ana.Run(ChessCommand::OpenGame);
     },
     true},
    {"FreeModeAsked",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Copy.Dialogs.Expect(box::kFreeModeTitle, box::kFreeModeQuestion, Button::No, meanwhile);
       ana.Run(ChessCommand::FreeMode);
     },
     true},
    {"FreeModeTravels",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Copy.Dialogs.Expect(box::kFreeModeTitle, box::kFreeModeQuestion, Button::Yes);
       ana.WhileWaiting(meanwhile);
       ana.Run(ChessCommand::FreeMode);
     },
     true},
    {"TimesAsked",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.BeFree();
       ana.Copy.Dialogs.ExpectInput(u"Establecer tiempos"_s, u"Establezca el tiempo de las blancas(minutos:segundos)"_s,
                                    u"0:0"_s, QString(), meanwhile);
       ana.Run(ChessCommand::SetClocks);
     },
     true},
    {"DataAsked",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.BeFree();
       ana.Copy.Dialogs.ExpectInput(u"Establecer datos"_s, u"Número de jugada actual: "_s, u"1"_s, QString(),
                                    meanwhile);
       ana.Run(ChessCommand::SetData);
     },
     true},
    {"MateRefused",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Copy.Dialogs.Expect({}, u"Su rey no está en jaque, por lo que no puede ser jaque mate. "_s, meanwhile);
       ana.Run(ChessCommand::DeclareMate);
     },
     true},
    {"OwnEndTold",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.Copy.Dialogs.Expect({}, box::kGameLost, meanwhile);
       ana.Run(ChessCommand::Resign);
     },
     true},
    {"OpponentsMateTold",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.WinBy(u"JMate|"_s, u"Luis se ha declarado en jaque mate."_s, meanwhile);
     },
     true},
    {"OpponentsResignationTold",
     [](Ana& ana, const Meanwhile& meanwhile) { ana.WinBy(u"Abandona|"_s, u"Luis abandona la partida."_s, meanwhile); },
     true},
    {"RematchAsked",
     [](Ana& ana, const Meanwhile& meanwhile) {
       ana.WinBy(u"JMate|"_s, u"Luis se ha declarado en jaque mate."_s);
       ana.Copy.Dialogs.Expect(box::kChess, box::kRematch, Button::Yes, meanwhile);
       ana.Copy.Click(u"a1"_s);
     },
     true},
};

}  // namespace

const std::vector<Moment>& Moments() { return kMoments; }

std::vector<Moment> BusyMoments() {
  std::vector<Moment> busy;
  std::copy_if(kMoments.begin(), kMoments.end(), std::back_inserter(busy),
               [](const Moment& moment) { return moment.Busy; });
  return busy;
}

}  // namespace brontavia::test
