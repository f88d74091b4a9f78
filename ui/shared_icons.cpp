#include "ui/shared_icons.h"

#include <QApplication>
#include <QHash>
#include <QProxyStyle>

namespace brontavia {
namespace {

// Any style, with each icon made when it is first asked for.
class SharedIcons : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override {
    auto icon = icons_.constFind(which);
    if (icon == icons_.cend()) icon = icons_.insert(which, QProxyStyle::standardIcon(which, option, widget));
    return *icon;
  }

 private:
  mutable QHash<StandardPixmap, QIcon> icons_;
};

}  // namespace

void ShareStandardIcons() { QApplication::setStyle(new SharedIcons(QApplication::style()->name())); }

}  // namespace brontavia
