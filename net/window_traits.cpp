#include "net/window_traits.h"

#include <array>

#include "text/qt_text.h"

namespace brontavia {
namespace {

using namespace message;

// ---- What each window understands, in the order in which it looks ----

constexpr std::array kTerMessages{&kName, &kTurnChoice, &kTurnDecided, &kWon, &kRematchYes, &kRematchNo, &kMove};
constexpr std::array kBarMessages{&kName,      &kTurnChoice, &kTurnDecided, &kWon, &kRematchYes,
                                  &kRematchNo, &kPlaced,     &kReady,       &kMove};
constexpr std::array kStrategyMessages{&kName,       &kTurnChoice, &kTurnDecided, &kReady,  &kWon,
                                       &kRematchYes, &kRematchNo,  &kMove,        &kPlaced, &kPassed};
constexpr std::array kAjeMessages{&kName,         &kTurnChoice,   &kTurnDecided,    &kRematchYes,    &kRematchNo,
                                  &kChessMove,    &kMateDeclared, &kResigned,       &kDrawOffered,   &kDrawAccepted,
                                  &kDrawRefused,  &kResumeAsked,  &kResumeAccepted, &kResumeRefused, &kPosition,
                                  &kResumedTurns, &kFreeMode};

// ---- Texts that several windows share ----

constexpr QStringView kFirstTurnQuestion =
    u"Indique qué jugador empezará la partida: 1 = yo empiezo; 2 = Él empieza; 3 = Sortear.";

constexpr FirstTurnReport kPlacingGameReport{.MutualOpening = u"Por decisión mutua comenzará jugando ",
                                             .DrawOpening = u"Tras realizar el sorteo, comenzará jugando ",
                                             .Ending = u"",
                                             .EndingAtLateChoice = u""};

}  // namespace

const QStringView kServerInstructions =
    u"El programa ha empezado a escuchar en el puerto seleccionado. Comunique al otro jugador su IP externa si no lo "
    u"ha hecho todavía, y \r\n"
    u"dígale que inicie la conexión. Cuando él inicie la conexión e introduzca su IP, usted recibirá una solicitud de "
    u"conexión que deberá aceptar \r\n"
    u"para poder jugar.Si esta solicitud de conexión no llega,compruebe si el puerto seleccionado está abierto.\r\n";

QString ClientInstructions(const WindowTraits& window) {
  using namespace Qt::StringLiterals;
  QString text =
      u"Solicite al otro jugador que le facilite su IP externa y que inicie el juego y cuando él esté listo, pulse el "
      u"botón de conectar. Cuando  se le \r\n"
      u"pregunte introduzca la IP que le ha facilitado y espere un instante a que se complete la conexión. Para jugar "
      u"entre dos ventanas  del mismo "_s;
  if (window.ClientTextHasBreak) text += kCrLf;
  text += u"ordenador, pulse el botón de conexión local.";
  if (window.ClientTextEndsInBlank) text += u' ';
  return text + kCrLf;
}

// ---- The five windows ----

constexpr WindowTraits kFormTER{
    .Window = u"FormTER",
    .GameCode = u"TER",
    .ListEntry = u"TRES EN RAYA",
    .Caption = u"BRONTAVIA - TRES EN RAYA",
    .CaptionSuffix = u" - Tres en raya",
    .RematchTitle = u"Tres en raya",
    .CloseQuestionTitle = u"Tres en raya",
    .Address = AddressBox::AsTyped,
    .ClientTextHasBreak = false,
    .ClientTextEndsInBlank = true,
    .BeepsForEveryText = true,
    .FirstTurnQuestion = kFirstTurnQuestion,
    .Report = {.MutualOpening = u"Por decisión mutua comienza jugando ",
               .DrawOpening = u"Tras realizar el sorteo, comienza jugando ",
               .Ending = u" es su turno. ",
               .EndingAtLateChoice = u", es su turno. "},
    .NewGameOpening = u"Comienza jugando ",
    .NewGameEnding = u".",
    .Messages = kTerMessages,
};

constexpr WindowTraits kFormBAR{
    .Window = u"FormBAR",
    .GameCode = u"BAR",
    .ListEntry = u"BATALLA NAVAL",
    .Caption = u"BRONTAVIA - BATALLA NAVAL",
    .CaptionSuffix = u" - Batalla naval",
    .RematchTitle = u"Batalla naval",
    .CloseQuestionTitle = u"Batalla naval",
    .Address = AddressBox::BlankMeansLocal,
    .ClientTextHasBreak = true,
    .ClientTextEndsInBlank = true,
    .BeepsForEveryText = true,
    .FirstTurnQuestion = kFirstTurnQuestion,
    .Report = kPlacingGameReport,
    .NewGameOpening = u"Comenzará jugando ",
    .NewGameEnding = u". Coloque sus barcos.",
    .Messages = kBarMessages,
};

constexpr WindowTraits kFormMES{
    .Window = u"FormMES",
    .GameCode = u"MES",
    .ListEntry = u"Mini-Estratega",
    .Caption = u"BRONTAVIA - Mini - Estratega",
    .CaptionSuffix = u" - Mini-Estratega",
    .RematchTitle = u"Mini Estratega",
    .CloseQuestionTitle = std::nullopt,
    .Address = AddressBox::LocalBeforeAsking,
    .ClientTextHasBreak = true,
    .ClientTextEndsInBlank = false,
    .BeepsForEveryText = true,
    .FirstTurnQuestion = kFirstTurnQuestion,
    .Report = kPlacingGameReport,
    .NewGameOpening = u"Comenzará jugando ",
    .NewGameEnding = u". Coloque su ejército.",
    .Messages = kStrategyMessages,
};

constexpr WindowTraits kFormEST{
    .Window = u"FormEST",
    .GameCode = u"EST",
    .ListEntry = u"Estratega",
    .Caption = u"BRONTAVIA - Estratega",
    .CaptionSuffix = u" - Estratega",
    .RematchTitle = u"Estratega",
    .CloseQuestionTitle = std::nullopt,
    .Address = AddressBox::LocalBeforeAsking,
    .ClientTextHasBreak = true,
    .ClientTextEndsInBlank = true,
    .BeepsForEveryText = true,
    .FirstTurnQuestion = kFirstTurnQuestion,
    .Report = kPlacingGameReport,
    .NewGameOpening = u"Comenzará jugando ",
    .NewGameEnding = u". Coloque su ejército.",
    .Messages = kStrategyMessages,
};

constexpr WindowTraits kFormAje{
    .Window = u"FormAje",
    .GameCode = u"AJE",
    .ListEntry = u"Ajedrez",
    .Caption = u"BRONTAVIA - AJEDREZ",
    .CaptionSuffix = u" - Ajedrez",
    .RematchTitle = u"Ajedrez",
    .CloseQuestionTitle = std::nullopt,
    .Address = AddressBox::LocalBeforeAsking,
    .ClientTextHasBreak = true,
    .ClientTextEndsInBlank = false,
    .BeepsForEveryText = false,
    .FirstTurnQuestion = u"Indique qué jugador Jugará con blancas: 1 = yo; 2 = Él; 3 = Sortear.",
    .Report = {.MutualOpening = u"Por decisión mutua jugará  con blancas ",
               .DrawOpening = u"Tras realizar el sorteo, jugará  con blancas ",
               .Ending = u",  realice su primer movimiento.",
               .EndingAtLateChoice = u",  realice su primer movimiento."},
    .NewGameOpening = u"Comienza jugando ",
    .NewGameEnding = u".",
    .Messages = kAjeMessages,
};

}  // namespace brontavia
