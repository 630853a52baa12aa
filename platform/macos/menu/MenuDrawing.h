#pragma once

#import <AppKit/AppKit.h>

#include <functional>

#include "platform/ports/MenuModel.h"

namespace tilwin::macos {

/// Replaces all items of the menu by those of the model. Each item of a command owns its target, as its
/// represented object, which passes the command's choice to `onChoice`. Main thread only.
void drawMenu(const MenuModel& model, NSMenu* menu, const std::function<void(const MenuChoice&)>& onChoice);

}  // namespace tilwin::macos
