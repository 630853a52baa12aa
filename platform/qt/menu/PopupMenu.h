#pragma once

#include <QMenu>
#include <QPoint>
#include <QString>
#include <functional>
#include <string>

#include "platform/ports/MenuModel.h"

namespace tilwin::qt {

/// A title as one line of plain text: line breaks and tabs, which menus give a meaning, become spaces.
[[nodiscard]] QString titleText(const std::string& title);

/// A menu as a window of this program, for panels that do not draw menus.
class PopupMenu {
public:
  using ChoiceHandler = std::function<void(const MenuChoice&)>;

  /// The handler is called through the event loop, after the menu has closed.
  explicit PopupMenu(ChoiceHandler onChoice) : onChoice_(std::move(onChoice)) {}

  /// Opens the menu at this position of the screen; an open one is replaced.
  void open(const MenuModel& model, QPoint at);

private:
  void fill(QMenu& menu, const std::vector<MenuItem>& items);
  void addCommand(QMenu& menu, const MenuItem& item);

  ChoiceHandler onChoice_;
  QMenu menu_;
};

}  // namespace tilwin::qt
