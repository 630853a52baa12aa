#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/qt/QtMainQueue.h"
#include "platform/x11/windows/X11WindowProvider.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

/// What X11 alone can tell of windows, on a real desktop.
class X11Windows : public testing::Test {
protected:
  X11Windows();

  /// A window of another program.
  desktop::TestWindow open(desktop::TestWindowOptions options);

  /// The title of the window with the focus, once all events so far have been handled.
  std::optional<std::string> focusedTitle();
  std::optional<std::string> titleAt(Point at);
  std::optional<WindowInfo> listed(const std::string& title);
  testing::AssertionResult comesToStandAt(const desktop::TestWindow& window, const Rect& frame);
  void removeProperty(const desktop::TestWindow& window, const std::string& name);
  /// The data of the first client message of that type that has come.
  static std::array<std::uint32_t, 5> messageTo(desktop::XConnection& client, const std::string& type);

  desktop::Session session;
  FailingLog log;
  qt::QtMainQueue queue;
  std::optional<X11Connection> x;
  std::optional<X11Displays> displays;
  std::optional<HeldWindow> held;
  std::optional<X11WindowProvider> provider;
};

}  // namespace tilwin::x11
