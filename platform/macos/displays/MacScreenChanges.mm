#include "platform/macos/displays/MacScreenChanges.h"

#import <AppKit/AppKit.h>

#include <utility>

namespace tilwin::macos {

MacScreenChanges::MacScreenChanges()
    : observer_([NSNotificationCenter defaultCenter], NSApplicationDidChangeScreenParametersNotification,
                [this] {
                  // A copy, because the handler may set another one.
                  if (const auto handler = handler_) handler();
                }) {}

void MacScreenChanges::onChange(std::function<void()> handler) { handler_ = std::move(handler); }

}  // namespace tilwin::macos
