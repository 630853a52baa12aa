#pragma once

#include <functional>

#include "platform/macos/support/Held.h"

@class TWApplicationDelegate;

namespace tilwin::macos {

/// This program as an application of the desktop: an agent, with neither an icon in the Dock nor a menu bar
/// of its own. Create one before anything that shows windows; it must outlive the event loop. Main thread
/// only; handlers are called by the event loop. Without a window server AppKit ends the process.
class MacApplication {
public:
  /// Creates the shared NSApplication, which connects to the window server.
  MacApplication();
  MacApplication(const MacApplication&) = delete;
  MacApplication& operator=(const MacApplication&) = delete;
  ~MacApplication();

  /// Called once, when the event loop runs and the program has become an agent.
  void onLaunched(std::function<void()> handler);
  /// Called when the user starts the program although it runs already.
  void onReopened(std::function<void()> handler);

private:
  Held<TWApplicationDelegate*> delegate_;
};

}  // namespace tilwin::macos
