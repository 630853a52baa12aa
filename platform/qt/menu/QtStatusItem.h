#pragma once

#include <QObject>
#include <optional>

#include "platform/ports/StatusItem.h"
#include "platform/qt/menu/BusMenu.h"
#include "platform/qt/menu/NotifierHosts.h"
#include "platform/qt/menu/NotifierItem.h"
#include "platform/qt/menu/PopupMenu.h"
#include "platform/qt/menu/TrayIcon.h"

namespace tilwin::qt {

/// The status icon: a StatusNotifierItem while a panel shows those, otherwise an icon in the XEmbed tray. It
/// follows panels that come, go and change their kind; without a session bus only the tray is used.
/// While the one that knows of panels on the bus does not answer, the icon waits for it; nothing else does. A
/// QApplication must exist as long as this does.
///
/// Both mouse buttons open the menu. The panel draws it if it can, this program otherwise.
class QtStatusItem : public StatusItem {
public:
  QtStatusItem() = default;

  void install(const TemplateImage& image, MenuMaker makeMenu, ChoiceHandler onChoice) override;
  void setVisible(bool visible) override;
  [[nodiscard]] std::optional<bool> isShown() const override;

private:
  struct Installed {
    Installed(const TemplateImage& image, const MenuMaker& makeMenu, const ChoiceHandler& onChoice,
              std::function<void()> onHostsChange);

    PopupMenu popup;
    BusMenu menu;
    NotifierItem item;
    TrayIcon tray;
    NotifierHosts hosts;
  };

  void start();
  void draw();

  TemplateImage image_;
  MenuMaker makeMenu_;
  ChoiceHandler onChoice_;
  bool visible_ = false;
  std::optional<Installed> installed_;
  /// The watcher that knows of the item; empty if none does.
  QString knownTo_;
  /// Drops what is posted but not done when this is destroyed.
  QObject context_;
};

}  // namespace tilwin::qt
