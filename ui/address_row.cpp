#include "ui/address_row.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGuiApplication>
#include <QPushButton>
#include <algorithm>
#include <chrono>

#include "ui/look.h"
#include "ui/one_line_label.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto kCopiedFor = 2s;
constexpr QSize kSmallestButton(112, 32);
constexpr int kBetweenColumns = 16;

// Of the user's font.
constexpr qreal kAddress = 1.45;
constexpr qreal kLongAddress = 1.2;
constexpr int kLong = 20;  // characters
constexpr qreal kKind = 0.92;

QString ExplanationOf(AddressKind kind) {
  switch (kind) {
    case AddressKind::Cable:
      return u"Red local (cable) · Para otro ordenador de esta casa o de esta red"_s;
    case AddressKind::Radio:
      return u"Red local (wifi) · Para otro ordenador de esta casa o de esta red"_s;
    case AddressKind::VirtualNetwork:
      return u"Red privada virtual · Para quien esté en la misma red privada"_s;
    case AddressKind::InternetIPv4:
      return u"Internet · Para cualquiera"_s;
    case AddressKind::InternetIPv6:
      break;
  }
  return u"Internet (IPv6) · Para cualquiera que tenga IPv6"_s;
}

}  // namespace

QFont NumberFont(const QFont& font, qreal factor) {
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPixelSize(qRound(look::PixelsOf(font) * factor));
  fixed.setBold(true);
  return fixed;
}

AddressRow::AddressRow(QWidget* parent)
    : QWidget(parent),
      address_(new OneLineLabel({})),
      kind_(new OneLineLabel({}, OneLineLabel::Ink::Muted)),
      copy_(new QPushButton(u"Copiada"_s)) {
  address_->setFont(NumberFont(font(), kAddress));
  kind_->setFont(look::Scaled(font(), kKind));
  copy_->setAutoDefault(true);
  copy_->setFixedSize(copy_->sizeHint().expandedTo(kSmallestButton));
  setFocusProxy(copy_);
  copied_.setSingleShot(true);
  copied_.setInterval(kCopiedFor);
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins({});
  layout->setVerticalSpacing(2);
  layout->setHorizontalSpacing(kBetweenColumns);
  layout->setColumnStretch(0, 1);
  layout->addWidget(address_, 0, 0);
  layout->addWidget(kind_, 1, 0);
  layout->addWidget(copy_, 0, 1, 2, 1, Qt::AlignVCenter);
  connect(copy_, &QPushButton::clicked, this, &AddressRow::Copy);
  connect(&copied_, &QTimer::timeout, this, [this] { Caption(u"Copiar"_s); });
}

void AddressRow::Show(const OwnAddress& address) {
  if (address == shown_) return;
  shown_ = address;
  address_->setFont(NumberFont(font(), address.Address.size() > kLong ? kLongAddress : kAddress));
  address_->setText(address.Address);
  kind_->setText(ExplanationOf(address.Kind));
  copy_->setAccessibleDescription(kind_->text());
  copied_.stop();
  Caption(u"Copiar"_s);
}

void AddressRow::Copy() {
  QGuiApplication::clipboard()->setText(address_->text());
  Caption(u"Copiada"_s);
  copied_.start();
}

void AddressRow::Caption(const QString& caption) {
  copy_->setText(caption);
  copy_->setAccessibleName(caption + u' ' + address_->text());
}

}  // namespace brontavia
