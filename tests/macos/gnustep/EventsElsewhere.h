#pragma once

#import <AppKit/AppKit.h>

namespace tilwin::macos {

/// The event goes to another program: the global monitors of its type see it.
void deliverElsewhere(NSEvent* event);

/// How many monitors of either sort are there.
[[nodiscard]] std::size_t eventMonitors();

}  // namespace tilwin::macos
