// Windows that their window manager lists no longer, although they are open.

#include <gtest/gtest.h>
#include <unistd.h>

#include <optional>
#include <vector>

#include "tests/contract/MainLoop.h"
#include "tests/contract/X11Windows.h"

namespace tilwin::x11 {

namespace {

constexpr Point inTheWindow{500, 400};
constexpr Rect awayFromThere{300, 200, 500, 400};

class X11UnlistedClients : public X11Windows {
protected:
  /// The window at a point, once the program has seen the list that this test writes for the manager.
  std::optional<WindowInfo> foundWhenListed(const std::vector<std::uint32_t>& windows) {
    auto& manager = session.desktop().connection();
    xcb_change_property(manager.get(), XCB_PROP_MODE_REPLACE, manager.root(),
                        manager.atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 32,
                        static_cast<std::uint32_t>(windows.size()), windows.data());
    manager.sync();
    (void)titleAt(inTheWindow);  // answered after the event has been sent
    x->dispatch();
    return provider->window(inTheWindow);
  }

  /// The manager ends, which the program sees, and another one takes its place.
  void replaceManager(const desktop::TestWindow& window) {
    session.manager().stop();
    EXPECT_TRUE(session.desktop().waitUntil([&] { return session.desktop().clients().empty(); }));
    for (int looks = 0; looks < 2; ++looks) {
      EXPECT_FALSE(titleAt(inTheWindow));
      (void)provider->allWindows();
      runMainLoop(desktop::Milliseconds{1});
    }
    session.manager().start();
    EXPECT_TRUE(session.desktop().activate(window.id()));
  }

  bool isMaximizedBy(bool asked, const desktop::TestWindow& window) {
    return session.desktop().waitUntil([&] {
      x->dispatch();
      runMainLoop(desktop::Milliseconds{1});
      return session.desktop().maximized(window.id()) == asked;
    });
  }
};

}  // namespace

TEST_F(X11UnlistedClients, AreTheSameWindowsWhenTheyAreListedAgain) {
  const auto window = open({.title = "text"});
  session.manager().stop();
  const auto first = foundWhenListed({window.id()});
  ASSERT_TRUE(first);
  EXPECT_FALSE(foundWhenListed({}));
  const auto second = foundWhenListed({window.id()});
  ASSERT_TRUE(second);
  EXPECT_EQ(second->id, first->id);
}

TEST_F(X11UnlistedClients, ThatCloseMeanwhileAreOtherWindowsIfTheirNumberIsUsedAgain) {
  session.manager().stop();
  const desktop::TestWindowOptions options{.title = "text", .process = getppid()};
  std::optional<desktop::TestWindow> window;
  window.emplace(session.server().display(), options);
  const auto number = window->id();
  const auto first = foundWhenListed({number});
  ASSERT_TRUE(first);
  EXPECT_FALSE(foundWhenListed({}));
  window.reset();
  window.emplace(session.server().display(), options);
  ASSERT_EQ(window->id(), number) << "the server did not use the number again";
  const auto second = foundWhenListed({number});
  ASSERT_TRUE(second);
  EXPECT_NE(second->id, first->id);
}

TEST_F(X11UnlistedClients, AreNotTheWindowThatHadTheFocusLast) {
  const auto window = open({.title = "text"});
  ASSERT_TRUE(session.desktop().activate(window.id()));
  ASSERT_TRUE(focusedTitle());
  ASSERT_TRUE(provider->lastFocusedWindow());
  session.manager().stop();
  auto& manager = session.desktop().connection();
  xcb_delete_property(manager.get(), manager.root(), manager.atom("_NET_ACTIVE_WINDOW"));
  ASSERT_TRUE(foundWhenListed({window.id()}));
  ASSERT_TRUE(provider->lastFocusedWindow());
  EXPECT_FALSE(foundWhenListed({}));
  EXPECT_FALSE(provider->lastFocusedWindow());
}

TEST_F(X11UnlistedClients, WhoseManagerWasReplacedAreStillMovedByTheIdFromBefore) {
  const auto window = open({.title = "text"});
  const auto before = listed("text").value_or(WindowInfo());
  replaceManager(window);
  EXPECT_EQ(listed("text").value_or(WindowInfo()).id, before.id);
  EXPECT_TRUE(provider->setFrame(before.id, awayFromThere));
  EXPECT_TRUE(comesToStandAt(window, awayFromThere));
}

TEST_F(X11UnlistedClients, WhoseManagerWasReplacedAreMaximisedAgainByRestore) {
  const auto window = open({.title = "text"});
  ASSERT_TRUE(session.desktop().activate(window.id()));
  session.desktop().setMaximized(window.id(), true);
  ASSERT_TRUE(isMaximizedBy(true, window));
  ASSERT_TRUE(focusedTitle());
  const auto before = provider->focusedWindow().value_or(WindowInfo());
  ASSERT_TRUE(provider->setFrame(before.id, awayFromThere));
  ASSERT_TRUE(comesToStandAt(window, awayFromThere));
  replaceManager(window);
  ASSERT_TRUE(focusedTitle());
  ASSERT_TRUE(provider->restoreFrame(before.id, before.frame));
  EXPECT_TRUE(isMaximizedBy(true, window));
}

}  // namespace tilwin::x11
