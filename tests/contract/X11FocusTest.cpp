#include "platform/x11/windows/X11Workspace.h"

#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "tests/contract/X11Windows.h"

namespace tilwin::x11 {

namespace {

using desktop::TestWindow;
using desktop::TestWindowOptions;
using desktop::WindowKind;
using desktop::WindowState;

/// Windows of other programs and of this one that get the focus one after the other.
class X11Focus : public X11Windows {
protected:
  X11Focus() : workspace(*x, *provider, own) {}

  /// A window manager gives the focus to what has just opened, at some later moment.
  void waitForFocusOf(const TestWindow& window) {
    ASSERT_TRUE(session.desktop().waitUntil([&] { return session.desktop().activeWindow() == window.id(); }));
  }
  void focus(const TestWindow& window) { ASSERT_TRUE(session.desktop().activate(window.id())); }
  TestWindow openOwn(TestWindowOptions options) {
    options.process = getpid();
    return session.window(options);
  }

  std::string lastFocused() {
    x->dispatch();
    const auto window = provider->lastFocusedWindow();
    return window ? window->title : "none";
  }
  std::optional<RunningApplication> frontmost() {
    x->dispatch();
    return workspace.frontmostApplication();
  }

  const RunningApplication own{.bundleIdentifier = "tilwin", .localizedName = "Tilwin"};
  X11Workspace workspace;
};

}  // namespace

TEST_F(X11Focus, TheFocusedWindowIsTheLastFocusedOne) {
  const auto first = open({.title = "first"});
  const auto second = open({.title = "second"});
  waitForFocusOf(second);
  focus(first);
  EXPECT_EQ(lastFocused(), "first");
  focus(second);
  EXPECT_EQ(lastFocused(), "second");
}

TEST_F(X11Focus, WhileThisProgramHasTheFocusItIsTheWindowBefore) {
  const auto editor = open({.title = "editor"});
  focus(editor);
  ASSERT_EQ(lastFocused(), "editor");
  const auto dialog = openOwn({.title = "prompt", .kind = WindowKind::dialog});
  focus(dialog);
  EXPECT_EQ(lastFocused(), "editor");
  EXPECT_EQ(focusedTitle(), std::nullopt);
}

TEST_F(X11Focus, WhileAPanelHasTheFocusItIsTheWindowBefore) {
  const auto editor = open({.title = "editor"});
  focus(editor);
  ASSERT_EQ(lastFocused(), "editor");
  const auto wallpaper = open({.title = "desktop", .area = {0, 0, 1920, 1080}, .kind = WindowKind::desktop});
  focus(wallpaper);
  EXPECT_EQ(lastFocused(), "editor");
}

TEST_F(X11Focus, AWindowThatWasClosedOrMinimisedMeanwhileIsPassedOver) {
  const auto oldest = open({.title = "oldest"});
  const auto older = open({.title = "older"});
  std::optional<TestWindow> dialog;
  {
    const auto newest = open({.title = "newest"});
    waitForFocusOf(newest);
    for (const auto* window : {&oldest, &older, &newest}) {
      focus(*window);
      lastFocused();
    }
    dialog.emplace(session.server().display(), TestWindowOptions{.title = "prompt", .process = getpid()});
    focus(*dialog);
    EXPECT_EQ(lastFocused(), "newest");
  }
  EXPECT_TRUE(session.desktop().waitUntil([&] { return lastFocused() == "older"; })) << lastFocused();
  session.desktop().set(older.id(), WindowState::hidden, true);
  EXPECT_TRUE(session.desktop().waitUntil([&] { return lastFocused() == "oldest"; })) << lastFocused();
}

TEST_F(X11Focus, AWindowOnAnotherWorkspaceIsPassedOver) {
  const auto window = open({.title = "on the first workspace"});
  focus(window);
  ASSERT_EQ(lastFocused(), "on the first workspace");
  auto& root = session.desktop().connection();
  root.sendToRoot(root.root(), "_NET_CURRENT_DESKTOP", {1, 0, 0, 0, 0});
  EXPECT_TRUE(session.desktop().waitUntil([&] { return lastFocused() == "none"; }));
  EXPECT_EQ(frontmost(), std::nullopt);
  root.sendToRoot(root.root(), "_NET_CURRENT_DESKTOP", {0, 0, 0, 0, 0});
  EXPECT_TRUE(session.desktop().waitUntil([&] { return lastFocused() == "on the first workspace"; }));
}

TEST_F(X11Focus, TheFrontmostProgramIsThatOfTheFocusedWindow) {
  const auto editor = open({.className = "Editor", .title = "text"});
  focus(editor);
  EXPECT_EQ(frontmost(), (RunningApplication{.bundleIdentifier = "Editor", .localizedName = "Editor"}));
}

TEST_F(X11Focus, ThisProgramIsFrontmostWhileItsWindowHasTheFocus) {
  const auto editor = open({.className = "Editor"});
  focus(editor);
  const auto settings = openOwn({.title = "settings"});
  focus(settings);
  EXPECT_EQ(frontmost(), own);
  EXPECT_EQ(workspace.ownBundleIdentifier(), "tilwin");
}

TEST_F(X11Focus, BehindAPanelTheProgramOfTheLastWindowIsFrontmost) {
  const auto editor = open({.className = "Editor"});
  focus(editor);
  EXPECT_TRUE(frontmost());
  const auto wallpaper = open({.area = {0, 0, 1920, 1080}, .kind = WindowKind::desktop});
  focus(wallpaper);
  EXPECT_EQ(frontmost(), (RunningApplication{.bundleIdentifier = "Editor", .localizedName = "Editor"}));
}

TEST_F(X11Focus, WithoutAWindowNoProgramIsFrontmost) { EXPECT_EQ(frontmost(), std::nullopt); }

TEST_F(X11Focus, EveryProgramWithAWindowRunsOnce) {
  const auto first = open({.className = "Editor"});
  const auto second = open({.className = "Editor"});
  const auto third = open({.className = "Player"});
  const auto settings = openOwn({.className = "Tilwin"});
  x->dispatch();
  auto running = workspace.runningApplications();
  std::ranges::sort(running, {}, &RunningApplication::bundleIdentifier);
  EXPECT_EQ(running,
            (std::vector<RunningApplication>{{.bundleIdentifier = "Editor", .localizedName = "Editor"},
                                             {.bundleIdentifier = "Player", .localizedName = "Player"}}));
}

}  // namespace tilwin::x11
