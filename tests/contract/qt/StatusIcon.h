#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/ports/MenuModel.h"
#include "platform/qt/menu/QtStatusItem.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/qt/IconOnScreen.h"
#include "tests/contract/qt/QtDesktop.h"
#include "tests/contract/qt/StatusImage.h"

namespace tilwin::contract {

/// A visible status icon of this process with a menu, under a real panel.
struct StatusIcon {
  StatusIcon();

  static bool comes();
  static bool goes();
  /// Whether it is at the top of the screen, where a plain xfce4-panel is.
  static bool isAtTheTop();
  static void click(int button = 1);
  /// Waits until that many choices were reported.
  bool isChosen(std::size_t times) const;

  MenuModel menu{{MenuItem::command("First", {"first", ""}), MenuItem::command("Second", {"second", ""})}};
  std::vector<std::string> chosen;
  qt::QtStatusItem item;
};

}  // namespace tilwin::contract
