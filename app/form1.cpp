#include "app/form1.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QPainter>
#include <QPushButton>
#include <QUrl>
#include <algorithm>
#include <array>

#include "app/version.h"
#include "ui/full_screen.h"
#include "ui/guide_box.h"
#include "ui/look.h"
#include "ui/one_line_label.h"
#include "ui/picture_button.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kSmallestWidth = 440;
constexpr QSize kFirstSize(800, 600);
constexpr int kWidest = 1000;           // of the parts together; a wider window leaves room beside them
constexpr int kNarrow = 560;            // the buttons stand one over the other below this width
constexpr qreal kPictureInset = 0.147;  // of a button's height
constexpr int kLetterSpacing = 3;
constexpr int kBesideIcon = 20;
constexpr int kLowestWithMotto = 70;
constexpr int kSmallIcon = 48;
constexpr int kBetweenButtons = 16;
constexpr qreal kHighestButton = 0.42;  // of its width
constexpr int kMostSpareOfText = 40;
constexpr int kBesideCredit = 16;

// Of the user's font.
constexpr qreal kName = 2.6;
constexpr qreal kMotto = 1.08;
constexpr qreal kQuestion = 1.15;
constexpr qreal kCredit = 0.92;

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

// Of all parts but the texts.
struct Form1::Measures {
  qreal Margin = 32;
  qreal Gap = 18;
  qreal Icon = 88;
  qreal Button = 150;
};

Form1::Form1(std::int32_t port, const QString& manual)
    : port_(port),
      name_(new OneLineLabel(u"BRONTAVIA"_s)),
      motto_(new OneLineLabel(u"Cinco juegos de mesa para dos"_s, OneLineLabel::Ink::Muted)),
      text1_(new GuideBox(u"Text1"_s, u"Indicaciones"_s, kQuestion)),
      server_button_(MakeRoleButton(Role::Server)),
      client_button_(MakeRoleButton(Role::Client)),
      text2_(new GuideBox(u"Text2"_s, u"Explicación"_s)),
      credit_(new OneLineLabel(
          u"Brontavia: cinco juegos de mesa para dos jugadores. Programa libre, GPL-3.0 o posterior."_s,
          OneLineLabel::Ink::Muted)),
      version_(new OneLineLabel(u"Versión "_s + Version(), OneLineLabel::Ink::Muted)),
      manual_(MakeManualButton(manual)),
      announcer_(*this) {
  setObjectName(u"Form1"_s);
  setWindowTitle(u"BRONTAVIA"_s);
  QString question = u"Seleccione cómo desea jugar."_s;
  if (port_ != kDefaultPort) question += u" Puerto de conexión: "_s + QString::number(port_);
  text1_->SetText(question);
  QFont name_font = look::Scaled(font(), kName, true);
  name_font.setLetterSpacing(QFont::AbsoluteSpacing, kLetterSpacing);
  name_->setFont(name_font);
  motto_->setFont(look::Scaled(font(), kMotto));
  credit_->setFont(look::Scaled(font(), kCredit));
  credit_->setObjectName(u"LBNombre"_s);
  version_->setFont(credit_->font());
  version_->setObjectName(u"LBVersion"_s);
  // The order in which Tab goes through them.
  for (QWidget* part : std::initializer_list<QWidget*>{name_, motto_, text1_, server_button_, client_button_, text2_,
                                                       credit_, version_, manual_}) {
    part->setParent(this);
  }
  text1_->setFocus();
  setMinimumSize(kSmallestWidth, look::SmallestWindow(font()).height());
  LetF11FillTheScreen(*this);
  resize(kFirstSize);
}

QPushButton* Form1::MakeRoleButton(Role role) {
  const bool server = role == Role::Server;
  const auto paint = [server](QPainter& painter, const QRectF& area, const look::Colours& /*colours*/) {
    look::PaintPicture(painter, area, server ? u"picture_lighthouse"_s : u"picture_boat"_s, area.size());
  };
  auto* button = new PictureButton(server ? u"Jugar como servidor"_s : u"Jugar como cliente"_s, paint, kPictureInset);
  button->setObjectName(server ? u"Command1(0)"_s : u"Command1(1)"_s);
  button->installEventFilter(this);
  connect(button, &QPushButton::clicked, this, [this, role] { emit RoleChosen(role); });
  return button;
}

QPushButton* Form1::MakeManualButton(const QString& manual) {
  auto* button = new QPushButton(u"Manual"_s);
  button->setObjectName(u"CBManual"_s);
  QFont font = look::Scaled(button->font(), kCredit);
  font.setUnderline(true);
  button->setFont(font);
  button->setFlat(true);
  button->setAutoDefault(true);
  if (manual.isEmpty()) button->hide();
  connect(button, &QPushButton::clicked, this, [this, manual] {
    // Where nothing can open it, the user can.
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(manual))) {
      text2_->SetText(u"El manual está en "_s + QDir::toNativeSeparators(manual));
      text2_->setFocus();
    }
  });
  return button;
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
  const Role role = watched == server_button_ ? Role::Server : Role::Client;
  switch (event->type()) {
    case QEvent::FocusIn:
      focused_role_ = role;
      Explain(role);
      announcer_.Announce(text2_->toPlainText());
      break;
    case QEvent::Enter:
      Explain(role);
      break;
    case QEvent::Leave:
      Explain(focused_role_);
      break;
    default:
      break;
  }
  return false;
}

void Form1::Explain(std::optional<Role> role) {
  if (!role) {
    text2_->clear();
    return;
  }
  text2_->SetText(*role == Role::Server ? ServerExplanation(port_) : ClientExplanation());
  text2_->SelectAll();
}

bool Form1::IsNarrow() const { return width() < kNarrow; }

int Form1::ColumnWidth(const Measures& measures) const {
  return std::min(width() - 2 * qRound(measures.Margin), kWidest);
}

int Form1::ButtonWidth(const Measures& measures) const {
  return IsNarrow() ? ColumnWidth(measures) : (ColumnWidth(measures) - kBetweenButtons) / 2;
}

int Form1::EndWidth() const {
  return version_->sizeHint().width() + (manual_->isHidden() ? 0 : kBesideCredit + manual_->sizeHint().width());
}

bool Form1::EndsInOneLine(int width) const {
  const std::array words{credit_->text()};
  const QSizeF room(width - EndWidth() - kBesideCredit, credit_->sizeHint().height());
  return look::FittingFont(credit_->font(), words, room, look::PixelsOf(credit_->font())).has_value();
}

int Form1::EndHeight(int width) const {
  const int line = credit_->sizeHint().height();
  return EndsInOneLine(width) ? line : 2 * line + look::kUnit;
}

Form1::Measures Form1::Tight() const {
  return {.Margin = 12, .Gap = 8, .Icon = 44, .Button = qreal(2 * server_button_->fontMetrics().lineSpacing())};
}

int Form1::ExplanationHeight(int width) const {
  if (explanation_.width() != width) {
    explanation_ = {width, std::max(text2_->HeightOf(ServerExplanation(port_), width),
                                    text2_->HeightOf(ClientExplanation(), width))};
  }
  return explanation_.height();
}

int Form1::NeededHeight(const Measures& measures) const {
  const int width = ColumnWidth(measures);
  return qRound(2 * measures.Margin + measures.Icon + 4 * measures.Gap + (IsNarrow() ? 2 : 1) * measures.Button +
                (IsNarrow() ? measures.Gap : 0)) +
         text1_->heightForWidth(width) + ExplanationHeight(width) + EndHeight(width);
}

void Form1::resizeEvent(QResizeEvent* /*event*/) {
  Measures measures;
  if (const int needed = NeededHeight(measures); needed > height()) {
    // How far all of them give way.
    const Measures least = Tight();
    const qreal part = std::clamp(qreal(needed - height()) / (needed - NeededHeight(least)), 0.0, 1.0);
    const auto give_way = [part](qreal& from, qreal to) { from += part * (to - from); };
    give_way(measures.Margin, least.Margin);
    give_way(measures.Gap, least.Gap);
    give_way(measures.Icon, least.Icon);
    give_way(measures.Button, least.Button);
  }
  // A wider button can also be higher.
  const qreal highest = std::max(measures.Button, ButtonWidth(measures) * kHighestButton);
  measures.Button += std::clamp<qreal>(height() - NeededHeight(measures), 0, highest - measures.Button);
  Arrange(measures);
}

void Form1::Arrange(const Measures& measures) {
  const int width = ColumnWidth(measures);
  // What even large buttons leave goes above and below everything.
  const int spare = std::max(0, height() - NeededHeight(measures) - kMostSpareOfText);
  const int left = (this->width() - width) / 2;
  const int gap = qRound(measures.Gap);
  int y = qRound(measures.Margin) + spare / 2;
  const auto place = [&](QWidget& part, int height) {
    part.setGeometry(left, y, width, height);
    y += height + gap;
  };

  icon_ = QRect(left, y, qRound(measures.Icon), qRound(measures.Icon));
  const int beside = icon_.right() + kBesideIcon;
  const int motto = icon_.height() < kLowestWithMotto ? 0 : motto_->sizeHint().height();
  const int name = std::min(name_->sizeHint().height(), icon_.height() - motto);
  name_->setGeometry(beside, y + (icon_.height() - motto - name) / 2, left + width - beside, name);
  motto_->setGeometry(beside, name_->geometry().bottom() + 1, name_->width(), motto);
  y += icon_.height() + gap;

  place(*text1_, text1_->heightForWidth(width));
  const int button = qRound(measures.Button);
  if (IsNarrow()) {
    place(*server_button_, button);
    place(*client_button_, button);
  } else {
    const int half = ButtonWidth(measures);
    server_button_->setGeometry(left, y, half, button);
    client_button_->setGeometry(left + width - half, y, half, button);
    y += button + gap;
  }
  const int below = gap + EndHeight(width) + qRound(measures.Margin);
  place(*text2_, std::max(0, height() - y - below - spare / 2));
  ArrangeEnd(QRect(left, y, width, EndHeight(width)));
  update();
}

void Form1::ArrangeEnd(const QRect& area) {
  const QSize version = version_->sizeHint();
  QRect credit(area.topLeft(), QSize(area.width(), version.height()));
  QRect below(QPoint(area.left(), area.bottom() + 1 - version.height()), version);
  if (EndsInOneLine(area.width())) {
    credit.setWidth(area.width() - EndWidth() - kBesideCredit);
    below.moveLeft(credit.right() + 1 + kBesideCredit);
  }
  credit_->setGeometry(credit);
  version_->setGeometry(below);
  // The button reaches into the gaps above and below, so that it is easier to hit.
  manual_->setGeometry(below.right() + 1 + kBesideCredit, below.top() - look::kUnit, manual_->sizeHint().width(),
                       below.height() + 2 * look::kUnit);
}

void Form1::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QString picture = icon_.width() > kSmallIcon ? u"icon-256"_s : u"icon-48"_s;
  look::PaintPicture(painter, icon_, picture, icon_.size());
}

void Form1::closeEvent(QCloseEvent* event) {
  event->ignore();
  emit CloseRequested();
}

}  // namespace brontavia
