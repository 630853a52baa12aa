#pragma once

#include <functional>
#include <optional>

#include "platform/ports/MenuModel.h"
#include "platform/ports/TemplateImage.h"

namespace tilwin {

/// The program's icon among the desktop's status icons, and its menu.
class StatusItem {
public:
  /// Called each time the menu is about to open. Where a panel in another program draws the menu, also when
  /// that reads it for the first time and after each choice, so that it need not change while it is open.
  using MenuMaker = std::function<MenuModel()>;
  /// Called after the menu has closed, as a task of the main queue.
  using ChoiceHandler = std::function<void(const MenuChoice&)>;

  StatusItem() = default;
  StatusItem(const StatusItem&) = delete;
  StatusItem& operator=(const StatusItem&) = delete;
  virtual ~StatusItem() = default;

  /// Creates the icon, hidden. Returns at once; where the desktop has no place for icons yet, the icon
  /// appears when a place does. Call it once.
  virtual void install(const TemplateImage& image, MenuMaker makeMenu, ChoiceHandler onChoice) = 0;
  virtual void setVisible(bool visible) = 0;
  /// Whether a panel shows it, as far as that is known: nothing while it is hidden, and on desktops that
  /// always have a place for it.
  [[nodiscard]] virtual std::optional<bool> isShown() const { return std::nullopt; }
};

}  // namespace tilwin
