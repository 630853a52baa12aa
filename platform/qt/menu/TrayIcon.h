#pragma once

#include <QSystemTrayIcon>
#include <functional>
#include <memory>

#include "platform/ports/TemplateImage.h"

namespace tilwin::qt {

/// The status icon as a window that a panel takes in. It appears as soon as there is such a panel, and again
/// in each later one. Source: System Tray Protocol and XEmbed (freedesktop.org), through QSystemTrayIcon.
///
/// At the first icon of a process, Qt asks the session bus, waiting for the answer, whether a panel shows
/// StatusNotifierItems; if so, all its icons are of that kind for good. So the icon is created when it is
/// first shown, and must be first shown while no such panel is there.
class TrayIcon {
public:
  /// `open` is called when the user presses the left or right button on the icon.
  TrayIcon(TemplateImage image, std::function<void()> open);

  void setVisible(bool visible);

private:
  TemplateImage image_;
  std::function<void()> open_;
  std::unique_ptr<QSystemTrayIcon> icon_;
};

}  // namespace tilwin::qt
