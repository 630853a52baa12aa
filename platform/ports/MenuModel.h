#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tilwin {

/// What the user chose in a menu: a command and the value it acts on, such as an id. Opaque to whoever draws
/// the menu.
struct MenuChoice {
  std::string command{};
  std::string argument{};

  bool operator==(const MenuChoice&) const = default;
};

/// One entry of a menu.
struct MenuItem {
  enum class Kind { command, submenu, separator };

  Kind kind = Kind::command;
  std::string title{};
  MenuChoice choice{};            ///< of a command
  bool isChecked = false;         ///< a command with a check mark
  bool isEnabled = true;          ///< a command that can be chosen now
  std::vector<MenuItem> items{};  ///< of a submenu

  bool operator==(const MenuItem&) const = default;

  [[nodiscard]] static MenuItem command(std::string title, MenuChoice choice, bool isChecked = false) {
    return {.title = std::move(title), .choice = std::move(choice), .isChecked = isChecked};
  }
  [[nodiscard]] static MenuItem submenu(std::string title, std::vector<MenuItem> items) {
    return {.kind = Kind::submenu, .title = std::move(title), .items = std::move(items)};
  }
  [[nodiscard]] static MenuItem separator() { return {.kind = Kind::separator}; }
};

/// A whole menu. No entry has a key equivalent.
struct MenuModel {
  std::vector<MenuItem> items{};

  bool operator==(const MenuModel&) const = default;
};

}  // namespace tilwin
