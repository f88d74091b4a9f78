#include "app/form1.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kFirstSize(560, 400);
constexpr int kButtonLines = 3;

QString ServerExplanation(std::int32_t port) {
  return u"Si elige esta opción,para poder jugar deberá:\r\n"
         u"· averiguar su IP externa y proporcionársela al otro jugador\r\n"
         u"· Permitir el paso de información por el puerto seleccionado (puerto "_s +
         QString::number(port) +
         u" de tcp). Para ello puede necesitar abrir este puerto en su router, abrirlo en el firewall y si windows le "
         u"muestra un aviso de que este programa se ha bloqueado, elegir la opción de desbloquear o de permitir según "
         u"la qe le aparezca.\r\n"
         u"Es necesario que uno de los jugadores actúe como servidor y el otro como cliente.";
}

QString ClientExplanation() {
  return u"Si elige esta opción, deberá pedirle al otro jugador que le proporcione su IP externa, e introducir este "
         u"dato cuando se le pida el nombre o dirección del equipo con el que se quiere conectar.\r\n"
         u"Es necesario que uno de los jugadores actúe como servidor y el otro como cliente."_s;
}

}  // namespace

Form1::Form1(std::int32_t port)
    : port_(port),
      text2_(new TextBox(u"Text2"_s, u"Explicación"_s)),
      server_button_(MakeRoleButton(Role::Server)),
      client_button_(MakeRoleButton(Role::Client)) {
  setObjectName(u"Form1"_s);
  setWindowTitle(u"BRONTAVIA"_s);
  QString question = u"Seleccione cómo desea jugar."_s;
  if (port_ != kDefaultPort) question += u" Puerto de conexión: "_s + QString::number(port_);
  auto* text1 = new TextBox(u"Text1"_s, u"Indicaciones"_s);
  text1->SetText(question);
  text1->SetMinimumLines(1);
  text1->setFixedHeight(text1->minimumHeight());
  auto* credit =
      new QLabel(u"Brontavia: cinco juegos de mesa para dos jugadores. Programa libre, GPL-3.0 o posterior."_s);
  credit->setObjectName(u"LBNombre"_s);
  credit->setWordWrap(true);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(server_button_);
  buttons->addWidget(client_button_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text1);
  layout->addLayout(buttons);
  layout->addWidget(text2_, 1);
  layout->addWidget(credit);
  text1->setFocus();
  resize(kFirstSize);
}

QPushButton* Form1::MakeRoleButton(Role role) {
  const bool server = role == Role::Server;
  auto* button = new QPushButton(server ? u"Jugar como servidor"_s : u"Jugar como cliente"_s);
  button->setObjectName(server ? u"Command1(0)"_s : u"Command1(1)"_s);
  button->setAutoDefault(true);
  button->setMinimumHeight(kButtonLines * button->fontMetrics().lineSpacing());
  button->installEventFilter(this);
  connect(button, &QPushButton::clicked, this, [this, role] { emit RoleChosen(role); });
  return button;
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) Explain(watched == server_button_ ? Role::Server : Role::Client);
  return false;
}

void Form1::Explain(Role role) {
  text2_->SetText(role == Role::Server ? ServerExplanation(port_) : ClientExplanation());
  text2_->selectAll();
}

void Form1::closeEvent(QCloseEvent* event) {
  event->ignore();
  emit CloseRequested();
}

}  // namespace brontavia
