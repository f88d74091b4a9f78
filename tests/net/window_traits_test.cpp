#include "net/window_traits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/all_windows.h"

namespace brontavia {
namespace {

using test::kAllWindows;
using testing::ElementsAre;

std::string Bytes(QStringView text) { return text.toUtf8().toStdString(); }

// ---- One text for each of the five windows, in the order of List1 ----

struct FiveTexts {
  const char* Name;
  QStringView WindowTraits::*Text;
  std::array<std::string, 5> Expected;
};

void PrintTo(const FiveTexts& texts, std::ostream* out) { *out << texts.Name; }

class TextOfFiveWindows : public testing::TestWithParam<FiveTexts> {};

TEST_P(TextOfFiveWindows, IsExact) {
  for (std::size_t window = 0; window < kAllWindows.size(); ++window) {
    EXPECT_EQ(Bytes(kAllWindows.at(window)->*GetParam().Text), GetParam().Expected.at(window)) << "window " << window;
  }
}

const std::string kQuestion = "Indique qué jugador empezará la partida: 1 = yo empiezo; 2 = Él empieza; 3 = Sortear.";

const FiveTexts kFiveTexts[] = {
    {"Window", &WindowTraits::Window, {"FormTER", "FormBAR", "FormMES", "FormEST", "FormAje"}},
    {"GameCode", &WindowTraits::GameCode, {"TER", "BAR", "MES", "EST", "AJE"}},
    {"ListEntry",
     &WindowTraits::ListEntry,
     {"TRES EN RAYA", "BATALLA NAVAL", "Mini-Estratega", "Estratega", "Ajedrez"}},
    {"Caption",
     &WindowTraits::Caption,
     {"BRONTAVIA - TRES EN RAYA", "BRONTAVIA - BATALLA NAVAL", "BRONTAVIA - Mini - Estratega", "BRONTAVIA - Estratega",
      "BRONTAVIA - AJEDREZ"}},
    {"CaptionSuffix",
     &WindowTraits::CaptionSuffix,
     {" - Tres en raya", " - Batalla naval", " - Mini-Estratega", " - Estratega", " - Ajedrez"}},
    {"RematchTitle",
     &WindowTraits::RematchTitle,
     {"Tres en raya", "Batalla naval", "Mini Estratega", "Estratega", "Ajedrez"}},
    {"FirstTurnQuestion",
     &WindowTraits::FirstTurnQuestion,
     {kQuestion, kQuestion, kQuestion, kQuestion,
      "Indique qué jugador Jugará con blancas: 1 = yo; 2 = Él; 3 = Sortear."}},
    {"NewGameOpening",
     &WindowTraits::NewGameOpening,
     {"Comienza jugando ", "Comenzará jugando ", "Comenzará jugando ", "Comenzará jugando ", "Comienza jugando "}},
    {"NewGameEnding",
     &WindowTraits::NewGameEnding,
     {".", ". Coloque sus barcos.", ". Coloque su ejército.", ". Coloque su ejército.", "."}},
};
INSTANTIATE_TEST_SUITE_P(Text, TextOfFiveWindows, testing::ValuesIn(kFiveTexts),
                         [](const auto& tested) { return std::string(tested.param.Name); });

// ---- Who begins ----

struct FiveReports {
  const char* Name;
  QStringView FirstTurnReport::*Text;
  std::array<std::string, 5> Expected;
};

void PrintTo(const FiveReports& reports, std::ostream* out) { *out << reports.Name; }

class ReportOfFiveWindows : public testing::TestWithParam<FiveReports> {};

TEST_P(ReportOfFiveWindows, IsExact) {
  for (std::size_t window = 0; window < kAllWindows.size(); ++window) {
    EXPECT_EQ(Bytes(kAllWindows.at(window)->Report.*GetParam().Text), GetParam().Expected.at(window))
        << "window " << window;
  }
}

const std::string kPlacingMutual = "Por decisión mutua comenzará jugando ";
const std::string kPlacingDraw = "Tras realizar el sorteo, comenzará jugando ";

const FiveReports kFiveReports[] = {
    {"MutualOpening",
     &FirstTurnReport::MutualOpening,
     {"Por decisión mutua comienza jugando ", kPlacingMutual, kPlacingMutual, kPlacingMutual,
      "Por decisión mutua jugará  con blancas "}},
    {"DrawOpening",
     &FirstTurnReport::DrawOpening,
     {"Tras realizar el sorteo, comienza jugando ", kPlacingDraw, kPlacingDraw, kPlacingDraw,
      "Tras realizar el sorteo, jugará  con blancas "}},
    {"Ending", &FirstTurnReport::Ending, {" es su turno. ", "", "", "", ",  realice su primer movimiento."}},
    {"EndingAtLateChoice",
     &FirstTurnReport::EndingAtLateChoice,
     {", es su turno. ", "", "", "", ",  realice su primer movimiento."}},
};
INSTANTIATE_TEST_SUITE_P(Report, ReportOfFiveWindows, testing::ValuesIn(kFiveReports),
                         [](const auto& tested) { return std::string(tested.param.Name); });

// ---- Instructions ----

const std::string kClientOneBreakLess =
    "Solicite al otro jugador que le facilite su IP externa y que inicie el juego y cuando él esté listo, pulse el "
    "botón de conectar. Cuando  se le \r\n"
    "pregunte introduzca la IP que le ha facilitado y espere un instante a que se complete la conexión. Para jugar "
    "entre dos ventanas  del mismo ordenador, pulse el botón de conexión local. \r\n";
const std::string kClientWithLastBlank =
    "Solicite al otro jugador que le facilite su IP externa y que inicie el juego y cuando él esté listo, pulse el "
    "botón de conectar. Cuando  se le \r\n"
    "pregunte introduzca la IP que le ha facilitado y espere un instante a que se complete la conexión. Para jugar "
    "entre dos ventanas  del mismo \r\n"
    "ordenador, pulse el botón de conexión local. \r\n";
const std::string kClientWithoutLastBlank =
    "Solicite al otro jugador que le facilite su IP externa y que inicie el juego y cuando él esté listo, pulse el "
    "botón de conectar. Cuando  se le \r\n"
    "pregunte introduzca la IP que le ha facilitado y espere un instante a que se complete la conexión. Para jugar "
    "entre dos ventanas  del mismo \r\n"
    "ordenador, pulse el botón de conexión local.\r\n";

TEST(ClientInstructions, DifferInLineBreaksAndLastBlank) {
  EXPECT_EQ(Bytes(ClientInstructions(kFormTER)), kClientOneBreakLess);
  EXPECT_EQ(Bytes(ClientInstructions(kFormBAR)), kClientWithLastBlank);
  EXPECT_EQ(Bytes(ClientInstructions(kFormMES)), kClientWithoutLastBlank);
  EXPECT_EQ(Bytes(ClientInstructions(kFormEST)), kClientWithLastBlank);
  EXPECT_EQ(Bytes(ClientInstructions(kFormAje)), kClientWithoutLastBlank);
}

TEST(ServerInstructions, AreExact) {
  EXPECT_EQ(Bytes(kServerInstructions),
            "El programa ha empezado a escuchar en el puerto seleccionado. Comunique al otro jugador su IP externa si "
            "no lo ha hecho todavía, y \r\n"
            "dígale que inicie la conexión. Cuando él inicie la conexión e introduzca su IP, usted recibirá una "
            "solicitud de conexión que deberá aceptar \r\n"
            "para poder jugar.Si esta solicitud de conexión no llega,compruebe si el puerto seleccionado está "
            "abierto.\r\n");
}

// ---- Ways ----

TEST(CloseQuestion, IsAskedInTwoWindows) {
  ASSERT_TRUE(kFormTER.CloseQuestionTitle);
  EXPECT_EQ(Bytes(*kFormTER.CloseQuestionTitle), "Tres en raya");
  ASSERT_TRUE(kFormBAR.CloseQuestionTitle);
  EXPECT_EQ(Bytes(*kFormBAR.CloseQuestionTitle), "Batalla naval");
  EXPECT_FALSE(kFormMES.CloseQuestionTitle);
  EXPECT_FALSE(kFormEST.CloseQuestionTitle);
  EXPECT_FALSE(kFormAje.CloseQuestionTitle);
}

TEST(AddressBoxOfWindow, HasThreeVariants) {
  EXPECT_EQ(kFormTER.Address, AddressBox::AsTyped);
  EXPECT_EQ(kFormBAR.Address, AddressBox::BlankMeansLocal);
  EXPECT_EQ(kFormMES.Address, AddressBox::LocalBeforeAsking);
  EXPECT_EQ(kFormEST.Address, AddressBox::LocalBeforeAsking);
  EXPECT_EQ(kFormAje.Address, AddressBox::LocalBeforeAsking);
}

TEST(Beep, SoundsInAllWindowsButChess) {
  for (const WindowTraits* window : kAllWindows) EXPECT_EQ(window->BeepsForEveryText, window != &kFormAje);
}

// ---- Messages ----

std::vector<std::string> Tokens(const WindowTraits& window) {
  std::vector<std::string> tokens;
  for (const Message* message : window.Messages) tokens.push_back(Bytes(message->Token));
  return tokens;
}

TEST(MessagesOfWindow, OfThreeInARowAreSoughtInThisOrder) {
  EXPECT_THAT(Tokens(kFormTER),
              ElementsAre("Nombre|", "turno|", "Turnodef|", "Haganado|", "Seguir|Si", "Seguir|No", "Jug|"));
}

// The other games add messages of their own between these.
TEST(MessagesOfWindow, CommonOnesKeepTheirOrder) {
  for (const WindowTraits* window : kAllWindows) {
    std::vector<std::string> common{"Nombre|", "turno|", "Turnodef|", "Haganado|", "Seguir|Si", "Seguir|No"};
    if (window == &kFormAje) std::erase(common, "Haganado|");
    std::vector<std::string> found = Tokens(*window);
    std::erase_if(found, [&common](const std::string& token) { return std::ranges::count(common, token) == 0; });
    EXPECT_EQ(found, common) << Bytes(window->Window);
  }
}

TEST(MessagesOfWindow, ChessDoesNotKnowTheWinningMessage) {
  EXPECT_EQ(std::ranges::count(kFormAje.Messages, &message::kWon), 0);
}

TEST(MessagesOfWindow, ARefusalIsNotSoughtBesideAWish) {
  EXPECT_EQ(Bytes(message::kRematchNo.Unless), "Seguir|Si");
  for (const Message* message : kFormTER.Messages) {
    if (message != &message::kRematchNo) {
      EXPECT_TRUE(message->Unless.isEmpty()) << Bytes(message->Token);
    }
  }
}

TEST(MessagesOfWindow, PayloadsBeginRightBehindTheirToken) {
  EXPECT_EQ(message::kName.PayloadFrom, 8);
  EXPECT_EQ(message::kTurnChoice.PayloadFrom, 7);
  EXPECT_EQ(message::kMove.PayloadFrom, 5);
}

// A text without a bar is not searched for any.
TEST(MessagesOfWindow, AllHaveABar) {
  for (const WindowTraits* window : kAllWindows) {
    for (const Message* message : window->Messages) EXPECT_TRUE(message->Token.contains(u'|')) << Bytes(message->Token);
  }
}

TEST(MessagesOfWindow, TheDecisionIsReadFromTheWholeText) { EXPECT_EQ(message::kTurnDecided.PayloadFrom, 1); }

TEST(MessagesOfWindow, TheAcceptanceIsSoughtWithoutItsBar) {
  EXPECT_EQ(Bytes(message::kAccepted.Token), "Solicitud aceptada");
}

}  // namespace
}  // namespace brontavia
