#pragma once

#include <string>

#include "app/layouts/LayoutKeeper.h"
#include "app/menu/CommandDialogs.h"
#include "platform/ports/Workspace.h"

namespace tilwin {

/// What the menu does with layouts: apply, save, describe and delete them, and tell the user what was not
/// possible.
class LayoutCommands {
public:
  /// All arguments must outlive this.
  LayoutCommands(LayoutKeeper& keeper, CommandDialogs& dialogs, Workspace& workspace)
      : keeper_(keeper), dialogs_(dialogs), workspace_(workspace) {}

  /// Ids are texts; an id of no layout does nothing.
  void apply(const std::string& id);
  void remove(const std::string& id);
  /// Saves all open windows under a name that the user enters.
  void saveArrangement();
  /// Places the windows that a sentence of the user names.
  void describe();

private:
  LayoutKeeper& keeper_;
  CommandDialogs& dialogs_;
  Workspace& workspace_;
};

}  // namespace tilwin
