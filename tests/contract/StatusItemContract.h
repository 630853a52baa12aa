#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ports/MenuModel.h"
#include "platform/ports/StatusItem.h"

namespace tilwin::contract {

/// An entry as the user sees it in an open menu.
struct ShownEntry {
  MenuItem::Kind kind = MenuItem::Kind::command;
  std::string title{};
  bool isChecked = false;
  bool isEnabled = true;
  std::vector<ShownEntry> items{};

  bool operator==(const ShownEntry&) const = default;
};

/// What the user is to see of these entries.
[[nodiscard]] std::vector<ShownEntry> entriesOf(const std::vector<MenuItem>& items);

enum class MouseButton { left, right };

/// A desktop with a place for status icons, the adapter under test, and a user. Calls may take effect
/// asynchronously: `settle` waits for that.
class StatusItemWorld {
public:
  StatusItemWorld() = default;
  StatusItemWorld(const StatusItemWorld&) = delete;
  StatusItemWorld& operator=(const StatusItemWorld&) = delete;
  virtual ~StatusItemWorld() = default;

  virtual StatusItem& item() = 0;
  /// Whether the icon is on the desktop now.
  virtual bool isIconShown() = 0;
  /// Clicks on the icon and waits until the menu is open.
  virtual void openMenu(MouseButton button) = 0;
  [[nodiscard]] virtual bool isMenuOpen() = 0;
  /// What the open menu shows, with its submenus.
  [[nodiscard]] virtual std::vector<ShownEntry> shown() = 0;
  /// Clicks on the entry at the end of this path of whole titles in the open menu, through its submenus.
  virtual void choose(const std::vector<std::string>& path) = 0;
  /// Closes the open menu without choosing.
  virtual void dismiss() = 0;
  /// Waits long enough for what the adapter has asked of the desktop to be there.
  virtual void rest() = 0;
  /// Runs the desktop and the main queue until the condition holds. Returns false on timeout.
  virtual bool settle(const std::function<bool()>& condition) = 0;
};

using StatusItemWorldMaker = std::unique_ptr<StatusItemWorld> (*)();

class StatusItemContract : public testing::TestWithParam<StatusItemWorldMaker> {
protected:
  /// Installs the icon with `menu` and waits until it is there.
  void show();
  /// Opens the menu, chooses and waits for the report.
  void choose(const std::vector<std::string>& path);
  bool iconComes() {
    return world->settle([&] { return world->isIconShown(); });
  }
  bool iconGoes() {
    return world->settle([&] { return !world->isIconShown(); });
  }

  MenuModel menu;  ///< what the next menu is made of
  int timesMade = 0;
  std::vector<MenuChoice> choices;
  bool wasOpenAtChoice = false;
  std::unique_ptr<StatusItemWorld> world = GetParam()();
};

}  // namespace tilwin::contract
