#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <vector>

namespace tilwin::macos {

/// Makes an event when it is its turn.
using Happening = std::function<NSEvent*()>;

/// Gives AppKit the events one by one, with pauses, also while it is in a loop that tracks the mouse. Returns
/// when they have been handled.
void play(std::vector<Happening> events);

}  // namespace tilwin::macos
