#include "tests/contract/X11Windows.h"

#include <unistd.h>

#include <cstdlib>

#include "tests/contract/MainLoop.h"

namespace tilwin::x11 {

X11Windows::X11Windows() {
  setenv("DISPLAY", session.server().display().c_str(), 1);
  x.emplace(log);
  displays.emplace(*x, queue);
  held.emplace(*x);
  provider.emplace(*x, *displays, *held, queue);
}

desktop::TestWindow X11Windows::open(desktop::TestWindowOptions options) {
  options.process = getppid();
  return session.window(options);
}

std::optional<std::string> X11Windows::focusedTitle() {
  x->dispatch();
  const auto window = provider->focusedWindow();
  return window ? std::optional(window->title) : std::nullopt;
}

std::optional<std::string> X11Windows::titleAt(Point at) {
  x->dispatch();
  const auto window = provider->window(at);
  return window ? std::optional(window->title) : std::nullopt;
}

std::optional<WindowInfo> X11Windows::listed(const std::string& title) {
  x->dispatch();
  for (const auto& window : provider->allWindows()) {
    if (window.title == title) return window;
  }
  return std::nullopt;
}

testing::AssertionResult X11Windows::comesToStandAt(const desktop::TestWindow& window, const Rect& frame) {
  const bool came = session.desktop().waitUntil([&] {
    x->dispatch();
    runMainLoop(desktop::Milliseconds{1});
    return session.desktop().frame(window.id()) == frame;
  });
  return came ? testing::AssertionSuccess() : testing::AssertionFailure() << "the window never arrived";
}

void X11Windows::removeProperty(const desktop::TestWindow& window, const std::string& name) {
  auto& witness = session.desktop().connection();
  xcb_delete_property(witness.get(), window.id(), witness.atom(name));
  witness.sync();
}

std::array<std::uint32_t, 5> X11Windows::messageTo(desktop::XConnection& client, const std::string& type) {
  const auto wanted = client.atom(type);
  while (const desktop::XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(client.get())}) {
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE || message.type != wanted) continue;
    return std::to_array(message.data.data32);
  }
  return {};
}

}  // namespace tilwin::x11
