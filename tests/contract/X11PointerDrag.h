#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

#include "platform/qt/QtMainQueue.h"
#include "platform/x11/input/X11Pointer.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

/// A hand that drags over a real desktop, and a program that is told of it.
class X11PointerDrag : public testing::Test {
protected:
  /// Between two looks at the pointer.
  static constexpr desktop::Milliseconds pause{30};

  X11PointerDrag();

  std::unique_ptr<PointerMonitor::Token> onMoves(const std::function<void()>& handler);

  desktop::Input& hand() { return session_.input(); }

  /// Handles every event sent so far; what the handlers asked of the server is done when this returns.
  void arrive();

  /// The number of the request made by this call; each request counts one.
  unsigned sequence() { return xcb_no_operation(x_->get()).sequence; }

  desktop::Session session_;
  FailingLog log_;
  qt::QtMainQueue queue_;
  std::optional<X11Connection> x_;
  std::optional<HeldWindow> held_;
  std::optional<X11Pointer> pointer_;
};

}  // namespace tilwin::x11
