#include "ui/server_frame.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

#include "net/window_traits.h"
#include "ui/address_row.h"
#include "ui/guide_box.h"
#include "ui/key_line.h"
#include "ui/look.h"
#include "ui/one_line_label.h"
#include "ui/sea_scene.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// Of the user's font.
constexpr qreal kHeading = 1.2;
constexpr qreal kPort = 1.45;

constexpr int kPlateMargin = 20;
constexpr int kBelowHeading = 6;
constexpr int kAboveKeys = 12;
constexpr int kCross = 10;
constexpr int kNoteSign = 24;
constexpr qreal kNoteEdge = 1.4;

// What must not be overlooked, in the colour of the lamp.
class Note : public QLabel {
 public:
  Note() {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setContentsMargins(kPlateMargin + kNoteSign + 12, 8, kPlateMargin, 8);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const look::Colours colours = look::ColoursOf(palette());
    painter.setPen(QPen(colours.LitEdge, kNoteEdge));
    painter.setBrush(colours.Lit);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), look::kPlateRadius, look::kPlateRadius);
    QRectF sign(kPlateMargin, 0, kNoteSign, kNoteSign);
    sign.moveTop((height() - kNoteSign) / 2.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.LitEdge);
    painter.drawEllipse(sign);
    painter.setBrush(colours.Lit);
    painter.drawEllipse(sign.center() - QPointF(0, 5.5), 1.9, 1.9);
    painter.drawRoundedRect(QRectF(sign.center() - QPointF(1.6, 1.5), QSizeF(3.2, 9)), 1, 1);
    painter.setPen(colours.LitText);
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text());
  }
};

}  // namespace

// The ground of rows, with a line between two of them. Without rows there is a cross where the first begins.
class ServerFrame::Plate : public QWidget {
 public:
  using QWidget::QWidget;

  void SetRows(int rows) { rows_ = rows; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const look::Colours colours = look::ColoursOf(palette());
    painter.setPen(colours.Line);
    painter.setBrush(colours.Base);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), look::kPlateRadius, look::kPlateRadius);
    for (int row = 1; row < rows_; ++row) {
      const qreal y = row * qreal(height()) / rows_ + 0.5;
      painter.drawLine(QPointF(look::kUnit * 4, y), QPointF(width() - look::kUnit * 4, y));
    }
    if (rows_ > 0) return;
    QRectF cross(kPlateMargin, 0, kCross, kCross);
    cross.moveTop((height() - kCross) / 2.0);
    painter.setPen(QPen(colours.Muted, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
  }

 private:
  int rows_ = 1;
};

struct ServerFrame::Measures {
  int Gap;        // between two parts
  int RowMargin;  // above and below what stands in a row
  bool Extras;    // advice and keys
};

ServerFrame::ServerFrame(const Connection& connection)
    : GuideFrame(u"SERVIDOR"_s, u"FrServidor"_s),
      connection_(connection),
      instructions_(new GuideBox(u"TbServ1"_s, u"Instrucciones"_s)),
      heading_(new OneLineLabel(u"Direcciones de este ordenador"_s)),
      advice_(new OneLineLabel(u"Dé la primera que el otro jugador pueda alcanzar."_s, OneLineLabel::Ink::Muted)),
      more_(new QPushButton(u"Más direcciones"_s)),
      addresses_plate_(new Plate),
      no_network_(new OneLineLabel(u"Este ordenador no está conectado a ninguna red."_s, OneLineLabel::Ink::Muted)),
      port_plate_(new Plate),
      port_(new OneLineLabel({})),
      note_(new Note),
      scene_(new SeaScene(SeaScene::Shows::Lighthouse)),
      keys_(new KeyLine) {
  instructions_->SetText(kServerInstructions.toString());
  heading_->setFont(look::Scaled(font(), kHeading, true));
  more_->setAutoDefault(true);
  // The order in which Tab goes through them.
  for (QWidget* part : std::initializer_list<QWidget*>{instructions_, heading_, advice_, more_, addresses_plate_,
                                                       port_plate_, note_, scene_, keys_}) {
    part->setParent(this);
  }
  for (AddressRow*& row : rows_) row = new AddressRow(addresses_plate_);
  no_network_->setParent(addresses_plate_);

  port_->setFont(NumberFont(font(), kPort));
  auto* caption = new OneLineLabel(u"Puerto"_s, OneLineLabel::Ink::Muted);
  for (QWidget* fixed_part : {caption, port_}) fixed_part->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(port_plate_);
  row->setContentsMargins(kPlateMargin, 0, kPlateMargin, 0);
  row->setSpacing(kPlateMargin);
  row->addWidget(caption);
  row->addWidget(port_);
  row->addWidget(new OneLineLabel(u"El otro jugador debe usar el mismo puerto."_s, OneLineLabel::Ink::Muted), 1);

  keys_->Show(
      {{.Key = u"Tab"_s, .Use = u"pasa al siguiente"_s}, {.Key = u"Espacio"_s, .Use = u"copia la dirección"_s}});

  connect(more_, &QPushButton::clicked, this, &ServerFrame::ShowMore);
}

void ServerFrame::SetPort(std::int32_t port) {
  const QString number = QString::number(port);
  port_->setText(number);
  note_->setText(
      u"Si juegan por Internet, el otro jugador necesita la dirección externa de su router, que este programa "
      u"no puede ver; búsquela en la página de configuración del router y abra en él el puerto "_s +
      number + u" hacia este ordenador."_s);
}

QString ServerFrame::Guidance() const {
  return instructions_->toPlainText().trimmed() + u' ' +
         (addresses_.isEmpty() ? no_network_->text() + u' ' : QString()) + note_->text();
}

bool ServerFrame::event(QEvent* event) {
  const bool handled = GuideFrame::event(event);
  if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) Refresh();
  // The instructions are announced; in their box their first line would be said again.
  if (event->type() == QEvent::Show && !addresses_.isEmpty()) rows_.front()->setFocus();
  return handled;
}

void ServerFrame::resizeEvent(QResizeEvent* event) {
  GuideFrame::resizeEvent(event);
  Arrange();
}

void ServerFrame::Refresh() {
  const QList<OwnAddress> addresses = connection_.OwnAddresses();
  if (addresses != addresses_) first_shown_ = 0;
  addresses_ = addresses;
  Arrange();
}

void ServerFrame::ShowMore() {
  // The last page is full, too.
  const qsizetype last = addresses_.size() - rows_shown_;
  first_shown_ = first_shown_ == last ? 0 : std::min(first_shown_ + rows_shown_, last);
  ShowAddresses();
}

void ServerFrame::ShowAddresses() {
  for (int i = 0; i < kMostRows; ++i) {
    AddressRow& row = *rows_[static_cast<std::size_t>(i)];
    const bool shown = i < rows_shown_ && i < addresses_.size();
    if (shown) row.Show(addresses_[first_shown_ + i]);
    row.setVisible(shown);
  }
  more_->setVisible(addresses_.size() > rows_shown_);
  no_network_->setVisible(addresses_.isEmpty());
}

int ServerFrame::RowHeight(const Measures& measures) const {
  return rows_.front()->sizeHint().height() + 2 * measures.RowMargin;
}

int ServerFrame::PortHeight(const Measures& measures) const {
  return port_plate_->sizeHint().height() + 2 * measures.RowMargin;
}

int ServerFrame::HeadingHeight() const { return std::max(heading_->sizeHint().height(), more_->sizeHint().height()); }

int ServerFrame::NeededHeight(const Measures& measures, int rows) const {
  const int width = contentsRect().width();
  int height = instructions_->heightForWidth(width) + measures.Gap + HeadingHeight() + kBelowHeading;
  if (measures.Extras) {
    height += advice_->sizeHint().height() + kBelowHeading + kAboveKeys + keys_->sizeHint().height();
  }
  height += rows * RowHeight(measures) + measures.Gap;
  return height + PortHeight(measures) + measures.Gap + note_->heightForWidth(width);
}

void ServerFrame::Arrange() {
  static constexpr std::array<Measures, 4> kMeasures{{{.Gap = 16, .RowMargin = 13, .Extras = true},
                                                      {.Gap = 16, .RowMargin = 13, .Extras = false},
                                                      {.Gap = 10, .RowMargin = 8, .Extras = false},
                                                      {.Gap = 6, .RowMargin = 4, .Extras = false}}};
  const QRect room = contentsRect();
  const int wanted = std::clamp(static_cast<int>(addresses_.size()), 1, kMostRows);
  const auto* const fitting = std::ranges::find_if(
      kMeasures, [&](const Measures& each) { return NeededHeight(each, wanted) <= room.height(); });
  const Measures& measures = fitting == kMeasures.end() ? kMeasures.back() : *fitting;
  rows_shown_ = std::clamp((room.height() - NeededHeight(measures, 0)) / RowHeight(measures), 1, wanted);
  first_shown_ = std::min(first_shown_, std::max<qsizetype>(0, addresses_.size() - rows_shown_));
  ShowAddresses();

  int y = room.top();
  const auto place = [&](QWidget& part, int height, int gap) {
    part.setGeometry(room.left(), y, room.width(), height);
    y += height + gap;
  };
  // Where even that is too much, the instructions are written smaller.
  const int lack = std::max(0, NeededHeight(measures, rows_shown_) - room.height());
  place(*instructions_, std::max(0, instructions_->heightForWidth(room.width()) - lack), measures.Gap);
  const QSize more = more_->sizeHint();
  more_->setGeometry(room.right() + 1 - more.width(), y + (HeadingHeight() - more.height()) / 2, more.width(),
                     more.height());
  place(*heading_, HeadingHeight(), kBelowHeading);
  if (!more_->isHidden()) heading_->resize(room.width() - more.width() - kPlateMargin, heading_->height());
  for (QWidget* extra : {static_cast<QWidget*>(advice_), static_cast<QWidget*>(keys_)}) {
    extra->setVisible(measures.Extras);
  }
  if (measures.Extras) place(*advice_, advice_->sizeHint().height(), kBelowHeading);
  const int row_height = RowHeight(measures);
  place(*addresses_plate_, rows_shown_ * row_height, measures.Gap);
  addresses_plate_->SetRows(addresses_.isEmpty() ? 0 : rows_shown_);
  QRect row(kPlateMargin, measures.RowMargin, room.width() - 2 * kPlateMargin, row_height - 2 * measures.RowMargin);
  no_network_->setGeometry(row.adjusted(kPlateMargin, 0, 0, 0));
  for (AddressRow* each : rows_) {
    each->setGeometry(row);
    row.translate(0, row_height);
  }
  place(*port_plate_, PortHeight(measures), measures.Gap);
  place(*note_, note_->heightForWidth(room.width()), measures.Gap);
  int bottom = room.bottom() + 1;
  if (measures.Extras) {
    const int keys = keys_->sizeHint().height();
    keys_->setGeometry(room.left(), bottom - keys, room.width(), keys);
    bottom -= keys + kAboveKeys;
  }
  scene_->setGeometry(room.left(), y, room.width(), std::max(0, bottom - y));
}

}  // namespace brontavia
