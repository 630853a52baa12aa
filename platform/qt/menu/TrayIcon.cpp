#include "platform/qt/menu/TrayIcon.h"

#include <utility>

#include "platform/qt/menu/TemplateIcon.h"

namespace tilwin::qt {

TrayIcon::TrayIcon(TemplateImage image, std::function<void()> open)
    : image_(std::move(image)), open_(std::move(open)) {}

void TrayIcon::setVisible(bool visible) {
  if (!visible && !icon_) return;
  if (!icon_) {
    icon_ = std::make_unique<QSystemTrayIcon>(templateIcon(image_));
    icon_->setToolTip("Tilwin");
    QObject::connect(icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
                     [this](QSystemTrayIcon::ActivationReason how) {
                       if (how != QSystemTrayIcon::MiddleClick) open_();
                     });
  }
  icon_->setVisible(visible);
}

}  // namespace tilwin::qt
