#include "ui/client_frame.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/guide_box.h"
#include "ui/key_line.h"
#include "ui/look.h"
#include "ui/picture_button.h"
#include "ui/sea_scene.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kNarrow = 560;  // the buttons stand one over the other below this width
constexpr int kButtonHeight = 78;
constexpr qreal kPictureInset = 0.077;  // of a button's height
constexpr int kBetweenButtons = 8;
constexpr int kGap = 16;
constexpr int kAboveKeys = 12;
constexpr int kLowestWithKeys = 60;  // what is left for picture and keys

// Two windows of one screen, and the way from one to the other.
void PaintTwoWindows(QPainter& painter, const QRectF& area, const look::Colours& colours) {
  constexpr QSizeF kDrawn(54, 36);
  const qreal scale = area.width() / 66;
  painter.save();
  painter.translate(area.center());
  painter.scale(scale, scale);
  painter.translate(-kDrawn.width() / 2, -kDrawn.height() / 2);
  QPen pen(colours.Text, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(0, 0, 26, 18));
  painter.drawRect(QRectF(28, 18, 26, 18));
  pen.setColor(colours.LitEdge);
  painter.setPen(pen);
  QPainterPath arrow(QPointF(6, 23));
  arrow.lineTo(6, 29);
  arrow.quadTo(6, 33, 10, 33);
  arrow.lineTo(22, 33);
  arrow.moveTo(18, 29);
  arrow.lineTo(22, 33);
  arrow.lineTo(18, 37);
  painter.drawPath(arrow);
  painter.restore();
}

void PaintBoat(QPainter& painter, const QRectF& area, const look::Colours& /*colours*/) {
  look::PaintPicture(painter, area, u"picture_boat"_s, area.size());
}

}  // namespace

ClientFrame::ClientFrame(const QString& instructions)
    : GuideFrame(u"CLIENTE"_s, u"FrCliente"_s),
      connect_here_(new PictureButton(u"CONEXIÓN LOCAL"_s, PaintTwoWindows, kPictureInset)),
      connect_there_(new PictureButton(u"CONECTAR"_s, PaintBoat, kPictureInset)),
      instructions_(new GuideBox(u"TbCli1"_s, u"Instrucciones"_s)),
      scene_(new SeaScene(SeaScene::Shows::LighthouseAndBoat)),
      keys_(new KeyLine) {
  connect_here_->setObjectName(u"CBConLocal"_s);
  connect_there_->setObjectName(u"CbConectar"_s);
  instructions_->SetText(instructions);
  keys_->Show({{.Key = u"Tab"_s, .Use = u"pasa al siguiente"_s}, {.Key = u"Intro"_s, .Use = u"conecta"_s}});
  for (QWidget* child : std::initializer_list<QWidget*>{connect_here_, connect_there_, instructions_, scene_, keys_}) {
    child->setParent(this);
  }
  connect(connect_here_, &QPushButton::clicked, this, &ClientFrame::CBConLocalClicked);
  connect(connect_there_, &QPushButton::clicked, this, &ClientFrame::CbConectarClicked);
}

QString ClientFrame::Guidance() const { return instructions_->toPlainText(); }

void ClientFrame::resizeEvent(QResizeEvent* event) {
  GuideFrame::resizeEvent(event);
  QRect room = contentsRect();
  const bool narrow = width() < kNarrow;
  const int height = std::max({kButtonHeight, connect_here_->sizeHint().height(), connect_there_->sizeHint().height()});
  const int width = narrow ? room.width() : (room.width() - kBetweenButtons) / 2;
  connect_here_->setGeometry(room.left(), room.top(), width, height);
  if (narrow) room.setTop(room.top() + height + kBetweenButtons);
  connect_there_->setGeometry(room.right() + 1 - width, room.top(), width, height);
  room.setTop(room.top() + height + kGap);
  instructions_->setGeometry(room.left(), room.top(), room.width(),
                             std::clamp(instructions_->heightForWidth(room.width()), 0, std::max(0, room.height())));
  room.setTop(room.top() + instructions_->height() + kGap);
  const int keys = keys_->sizeHint().height();
  keys_->setVisible(room.height() >= kLowestWithKeys);
  if (!keys_->isHidden()) {
    keys_->setGeometry(room.left(), room.bottom() + 1 - keys, room.width(), keys);
    room.setBottom(room.bottom() - keys - kAboveKeys);
  }
  scene_->setGeometry(room);
}

}  // namespace brontavia
