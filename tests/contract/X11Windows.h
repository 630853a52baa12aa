#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "platform/x11/windows/X11WindowProvider.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

/// What X11 alone can tell of windows, on a real desktop.
class X11Windows : public testing::Test {
protected:
  X11Windows() {
    setenv("DISPLAY", session.server().display().c_str(), 1);
    x.emplace(log);
    displays.emplace(*x, *queue);
    held.emplace(*x);
    provider.emplace(*x, *displays, *held, *queue);
  }

  /// A window of another program.
  desktop::TestWindow open(desktop::TestWindowOptions options) {
    options.process = getppid();
    return session.window(options);
  }

  /// The title of the window with the focus, once all events so far have been handled.
  std::optional<std::string> focusedTitle() {
    x->dispatch();
    const auto window = provider->focusedWindow();
    return window ? std::optional(window->title) : std::nullopt;
  }

  std::optional<std::string> titleAt(Point at) {
    x->dispatch();
    const auto window = provider->window(at);
    return window ? std::optional(window->title) : std::nullopt;
  }

  std::optional<WindowInfo> listed(const std::string& title) {
    x->dispatch();
    for (const auto& window : provider->allWindows()) {
      if (window.title == title) return window;
    }
    return std::nullopt;
  }

  testing::AssertionResult comesToStandAt(const desktop::TestWindow& window, const Rect& frame) {
    const bool came = session.desktop().waitUntil([&] {
      x->dispatch();
      return session.desktop().frame(window.id()) == frame;
    });
    return came ? testing::AssertionSuccess() : testing::AssertionFailure() << "the window never arrived";
  }

  void removeProperty(const desktop::TestWindow& window, const std::string& name) {
    auto& witness = session.desktop().connection();
    xcb_delete_property(witness.get(), window.id(), witness.atom(name));
    witness.sync();
  }

  /// The data of the first client message of that type that has come.
  static std::array<std::uint32_t, 5> messageTo(desktop::XConnection& client, const std::string& type) {
    const auto wanted = client.atom(type);
    while (const desktop::XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(client.get())}) {
      const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
      if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE || message.type != wanted) continue;
      return std::to_array(message.data.data32);
    }
    return {};
  }

  desktop::Session session;
  FailingLog log;
  std::unique_ptr<MainQueue> queue = makeMainQueue();
  std::optional<X11Connection> x;
  std::optional<X11Displays> displays;
  std::optional<HeldWindow> held;
  std::optional<X11WindowProvider> provider;
};

}  // namespace tilwin::x11
