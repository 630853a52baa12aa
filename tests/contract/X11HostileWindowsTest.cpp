#include <gtest/gtest.h>
#include <malloc.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tests/contract/MainLoop.h"
#include "tests/contract/X11Windows.h"

/// Counts what is allocated, if the sanitizer has replaced the allocator.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the sanitizer's own name
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace tilwin::x11 {

namespace {

using desktop::Milliseconds;
using desktop::TestWindow;
using Numbers = std::vector<std::uint32_t>;

std::size_t allocatedBytes() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) return __sanitizer_get_current_allocated_bytes();
  return mallinfo2().uordblks + mallinfo2().hblkhd;
}

constexpr Milliseconds soon{5000};
constexpr Rect wantedFrame{300, 200, 500, 400};

/// Other clients that write what only a window manager should, or more than anybody needs.
class X11HostileWindows : public X11Windows {
protected:
  X11HostileWindows() {
    queue.watch(x->fileDescriptor(), [this] { x->dispatch(); });
    queue.beforeEachSleep([this] { return x->dispatchQueued(); });
  }

  desktop::XConnection& hostile() { return session.desktop().connection(); }

  void write(desktop::WindowId window, const char* property, const char* type, const Numbers& numbers) {
    xcb_change_property(hostile().get(), XCB_PROP_MODE_REPLACE, window, hostile().atom(property),
                        hostile().atom(type), 32, static_cast<std::uint32_t>(numbers.size()), numbers.data());
    hostile().sync();
  }
  void makeActive(desktop::WindowId window) {
    write(hostile().root(), "_NET_ACTIVE_WINDOW", "WINDOW", {window});
  }
  void castShadow(const TestWindow& window, std::uint32_t width) {
    write(window.id(), "_GTK_FRAME_EXTENTS", "CARDINAL", {width, width, width, width});
  }

  testing::AssertionResult comesTo(const TestWindow& window, const Rect& frame) {
    std::optional<Rect> seen;
    const auto stands = [&] { return (seen = session.desktop().frame(window.id())) == frame; };
    if (runMainLoopUntil(stands, soon)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "stands at " << testing::PrintToString(seen);
  }

  std::int64_t idOf(const std::string& title) { return listed(title).value_or(WindowInfo()).id; }
};

}  // namespace

TEST_F(X11HostileWindows, TheRootIsNoWindowWithTheFocus) {
  const auto window = open({.title = "text"});
  ASSERT_TRUE(session.desktop().activate(window.id()));
  ASSERT_EQ(focusedTitle(), "text");
  makeActive(hostile().root());
  EXPECT_EQ(focusedTitle(), std::nullopt);
  EXPECT_EQ(provider->lastFocusedWindow().value_or(WindowInfo()).title, "text");
}

TEST_F(X11HostileWindows, ThisProgramsOwnPreviewIsNoWindowWithTheFocus) {
  const xcb_window_t own = xcb_generate_id(x->get());
  xcb_create_window(x->get(), XCB_COPY_FROM_PARENT, own, x->root(), 0, 0, 100, 100, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
  x->flush();
  makeActive(own);
  EXPECT_EQ(focusedTitle(), std::nullopt);
  EXPECT_EQ(provider->lastFocusedWindow(), std::nullopt);
}

TEST_F(X11HostileWindows, APanelThatIsMovedIsStillHeardOf) {
  // Not a dock, so that it can be moved like any window.
  const auto panel = open({.title = "panel",
                           .area = {0, 0, 1920, 40},
                           .strut = {.top = 40},
                           .strutSpans = {0, 0, 0, 0, 0, 1919, 0, 0}});
  const auto roomAtTop = [&] { return displays->current().front().visibleFrame.y; };
  ASSERT_TRUE(runMainLoopUntil([&] { return roomAtTop() == 40; }, soon));
  ASSERT_TRUE(provider->setFrame(idOf("panel"), wantedFrame));
  ASSERT_TRUE(comesTo(panel, wantedFrame));
  // Longer than a change of this window still matters to the one that moved it.
  runMainLoop(Milliseconds{1200});
  session.desktop().place(panel.id(), {0, 0, 1920, 40});
  runMainLoop(Milliseconds{200});
  write(panel.id(), "_NET_WM_STRUT_PARTIAL", "CARDINAL", {0, 0, 60, 0, 0, 0, 0, 0, 0, 1919, 0, 0});
  EXPECT_TRUE(runMainLoopUntil([&] { return roomAtTop() == 60; }, soon));
}

TEST_F(X11HostileWindows, AFrameThatItsManagerTellsBetweenTheLookAndTheRequestIsTakenIntoAccount) {
  const auto window = open({.title = "text"});
  ASSERT_TRUE(session.desktop().activate(window.id()));
  const auto told = hostile().numbers(window.id(), "_NET_FRAME_EXTENTS");
  ASSERT_EQ(told.size(), 4U);
  session.manager().process().signal(SIGSTOP);
  removeProperty(window, "_NET_FRAME_EXTENTS");
  x->dispatch();
  const auto seen = provider->focusedWindow();
  ASSERT_TRUE(seen);
  write(window.id(), "_NET_FRAME_EXTENTS", "CARDINAL", told);
  ASSERT_TRUE(provider->setFrame(seen->id, wantedFrame));
  session.manager().process().signal(SIGCONT);
  EXPECT_TRUE(comesTo(window, wantedFrame));
}

TEST_F(X11HostileWindows, AWindowWhoseShadowNeverRestsIsLeftAloneSoonAfterItWasMoved) {
  auto window = open({.title = "restless", .undecorated = true});
  ASSERT_TRUE(provider->setFrame(idOf("restless"), wantedFrame));
  std::uint32_t width = 0;
  const auto flicker = [&](Milliseconds time) {
    const auto until = desktop::Clock::now() + time;
    while (desktop::Clock::now() < until) {
      castShadow(window, width = 30 - width);
      runMainLoop(Milliseconds{33});
    }
  };
  flicker(Milliseconds{1300});
  window.moveTo({900, 500});
  flicker(Milliseconds{700});
  EXPECT_EQ(session.desktop().clientArea(window.id()).value_or(Rect()).x, 900);
  EXPECT_EQ(session.desktop().clientArea(window.id()).value_or(Rect()).y, 500);
}

TEST_F(X11HostileWindows, AWindowInTheUsersHandIsLeftThereWhateverItsShadowDoes) {
  auto window = open({.title = "restless", .undecorated = true});
  const auto id = idOf("restless");
  ASSERT_TRUE(provider->setFrame(id, wantedFrame));
  ASSERT_TRUE(comesTo(window, wantedFrame));
  ASSERT_TRUE(provider->frame(id));
  window.moveTo({900, 500});
  castShadow(window, 30);
  runMainLoop(Milliseconds{300});
  EXPECT_EQ(session.desktop().clientArea(window.id()).value_or(Rect()).x, 900);
}

TEST_F(X11HostileWindows, NamesWithoutEndTakeNoRoom) {
  constexpr int programs = 400;
  constexpr std::size_t longName = 60000;
  const auto window = open({.title = "text"});
  ASSERT_TRUE(session.desktop().activate(window.id()));
  (void)provider->focusedWindow();
  const auto before = allocatedBytes();
  for (int program = 0; program < programs; ++program) {
    const std::string name(longName, static_cast<char>('a' + program % 26));
    const std::string both = std::to_string(program) + std::string(1, '\0') + std::to_string(program) + name;
    xcb_change_property(hostile().get(), XCB_PROP_MODE_REPLACE, window.id(), XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(both.size()), both.data());
    hostile().sync();
    x->dispatch();
    ASSERT_TRUE(provider->focusedWindow());
  }
  EXPECT_LT(allocatedBytes(), before + programs * longName / 10);
}

}  // namespace tilwin::x11
