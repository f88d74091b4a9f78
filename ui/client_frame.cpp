#include "ui/client_frame.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/guide_box.h"
#include "ui/look.h"
#include "ui/picture_button.h"
#include "ui/sea_scene.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kNarrow = 560;  // the buttons stand one over the other below this width
constexpr int kButtonHeight = 78;
constexpr int kPictureInset = 6;
constexpr int kBetweenButtons = 8;
constexpr int kGap = 16;

// Two windows of one screen, and the way from one to the other.
void PaintTwoWindows(QPainter& painter, const QRectF& area, const QColor& ink) {
  constexpr QSizeF kDrawn(54, 36);
  const qreal scale = area.width() / 66;
  painter.save();
  painter.translate(area.center());
  painter.scale(scale, scale);
  painter.translate(-kDrawn.width() / 2, -kDrawn.height() / 2);
  QPen pen(ink, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(0, 0, 26, 18));
  painter.drawRect(QRectF(28, 18, 26, 18));
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

void PaintBoat(QPainter& painter, const QRectF& area, const QColor& /*ink*/) {
  look::PaintPicture(painter, area, u"picture_boat"_s, area.size());
}

}  // namespace

ClientFrame::ClientFrame(const QString& instructions)
    : GuideFrame(u"CLIENTE"_s, u"FrCliente"_s),
      connect_here_(new PictureButton(u"CONEXIÓN LOCAL"_s, PaintTwoWindows, kPictureInset)),
      connect_there_(new PictureButton(u"CONECTAR"_s, PaintBoat, kPictureInset)),
      instructions_(new GuideBox(u"TbCli1"_s, u"Instrucciones"_s)),
      scene_(new SeaScene(SeaScene::Shows::LighthouseAndBoat)) {
  connect_here_->setObjectName(u"CBConLocal"_s);
  connect_there_->setObjectName(u"CbConectar"_s);
  instructions_->SetText(instructions);
  for (QWidget* child : std::initializer_list<QWidget*>{connect_here_, connect_there_, instructions_, scene_}) {
    child->setParent(this);
  }
  connect(connect_here_, &QPushButton::clicked, this, &ClientFrame::CBConLocalClicked);
  connect(connect_there_, &QPushButton::clicked, this, &ClientFrame::CbConectarClicked);
}

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
  scene_->setGeometry(room);
}

}  // namespace brontavia
