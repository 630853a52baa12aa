#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/desktop/DefaultShortcuts.h"
#include "tests/desktop/harness/Session.h"
#include "tests/desktop/harness/selfcheck/ManagerParameter.h"

namespace tilwin::desktop {

namespace {

class UnderEachManager : public testing::TestWithParam<Manager> {
protected:
  Session session_{{.manager = GetParam()}};
  Desktop& desktop_ = session_.desktop();
};

INSTANTIATE_TEST_SUITE_P(, UnderEachManager, testing::ValuesIn(draggingManagers), nameOfManager);

bool contains(const Rect& outer, const Rect& inner) {
  return outer.x <= inner.x && outer.y <= inner.y && outer.maxX() >= inner.maxX() &&
         outer.maxY() >= inner.maxY();
}

}  // namespace

TEST_P(UnderEachManager, TheDesktopIsManagedAndCompositedAsTheTableSays) {
  EXPECT_TRUE(desktop_.managed());
  EXPECT_STRCASEEQ(desktop_.managerName().c_str(), session_.manager().traits().name);
  EXPECT_EQ(desktop_.composited(), session_.manager().composites());
}

TEST_P(UnderEachManager, RealApplicationsComeUpAndTakeTheFocus) {
  const auto terminal = session_.open(Application::xterm);
  const auto headerBar = session_.open(Application::gtkHeaderBar);
  const auto menuBar = session_.open(Application::gtkMenuBar);
  const auto qt = session_.open(Application::qt);
  for (const WindowId window : {terminal.window(), headerBar.window(), menuBar.window(), qt.window()}) {
    EXPECT_TRUE(desktop_.activate(window)) << desktop_.title(window);
    desktop_.place(window, {300, 200, 900, 700});
    constexpr double cell = 20;
    EXPECT_TRUE(desktop_.waitForFrame(window, {300, 200, 900, 700}, cell)) << desktop_.title(window);
  }
  EXPECT_EQ(desktop_.clients().size(), 4U);
}

TEST_P(UnderEachManager, AHeaderBarHasAShadowWhereTheDesktopIsComposited) {
  const auto application = session_.open(Application::gtkHeaderBar);
  EXPECT_EQ(desktop_.frameExtents(application.window()), Extents{});
  EXPECT_EQ(desktop_.shadowExtents(application.window()) != Extents{}, session_.manager().composites());
  EXPECT_EQ(desktop_.topLevelArea(application.window()), desktop_.clientArea(application.window()));
}

TEST_P(UnderEachManager, TheFrameByItsExtentsIsTheManagersFrameWindow) {
  const TestWindow window(session_.server().display());
  const auto byExtents = desktop_.frame(window.id());
  const auto byWindow = desktop_.topLevelArea(window.id());
  ASSERT_TRUE(byExtents && byWindow);
  EXPECT_GT(byExtents->height, 480);
  // A compositing Metacity keeps an invisible border around the frame to resize by.
  const bool invisibleBorder = GetParam() == Manager::metacity && desktop_.composited();
  EXPECT_TRUE(invisibleBorder ? contains(*byWindow, *byExtents) : *byWindow == *byExtents);
}

TEST_P(UnderEachManager, APlacedWindowStandsThereAndRecordsWhatItWasTold) {
  TestWindow window(session_.server().display());
  window.settle();
  window.forget();
  const Rect half{0, 0, 960, 1080};
  desktop_.place(window.id(), half);
  EXPECT_TRUE(desktop_.waitForFrame(window.id(), half));
  window.settle();
  const auto configures = window.recorded().configures;
  ASSERT_FALSE(configures.empty());
  const auto client = desktop_.clientArea(window.id());
  EXPECT_EQ(configures.back().size,
            (PixelSize{static_cast<int>(client->width), static_cast<int>(client->height)}));
}

TEST_P(UnderEachManager, EveryDefaultShortcutIsLeftToTheWindows) {
  TestWindow window(session_.server().display());
  ASSERT_TRUE(desktop_.activate(window.id()));
  ASSERT_TRUE(window.waitUntil([&] { return window.hasFocus(); }));
  std::vector<std::string> chords{nextDisplayKeys, previousDisplayKeys};
  for (const auto& shortcut : oneDisplayShortcuts) chords.emplace_back(shortcut.chord);
  for (const auto& chord : chords) {
    window.forget();
    session_.input().press(chord);
    const auto key = session_.input().keyboard().chord(chord).back();
    const auto arrived = [&] {
      const auto keys = window.recorded().keys;
      return std::any_of(keys.begin(), keys.end(), [&](const auto& press) { return press.key == key; });
    };
    EXPECT_TRUE(window.waitUntil(arrived, Milliseconds{1000})) << chord;
  }
}

TEST_P(UnderEachManager, ADragToAnEdgeMovesTheWindowAndTilesNothing) {
  const TestWindow window(session_.server().display());
  ASSERT_TRUE(desktop_.activate(window.id()));
  const Rect start{600, 300, 700, 500};
  for (const PixelPoint edge : {PixelPoint{0, 500}, PixelPoint{1919, 500}, PixelPoint{900, 0}}) {
    desktop_.place(window.id(), start);
    ASSERT_TRUE(desktop_.waitForFrame(window.id(), start));
    session_.input().drag(desktop_.titleBar(window.id()), edge);
    desktop_.settle();
    const auto after = desktop_.frame(window.id());
    ASSERT_TRUE(after.has_value());
    EXPECT_EQ(after->width, start.width);
    EXPECT_EQ(after->height, start.height);
    EXPECT_GT(std::abs(after->x - start.x) + std::abs(after->y - start.y), 100);
    EXPECT_TRUE(desktop_.viewable(window.id())) << "sent to another workspace";
  }
}

TEST_P(UnderEachManager, StatesAreSetAndTakenBack) {
  const TestWindow window(session_.server().display());
  const auto becomes = [&](const Predicate& predicate) { return desktop_.waitUntil(predicate); };
  desktop_.setMaximized(window.id(), true);
  EXPECT_TRUE(becomes([&] { return desktop_.maximized(window.id()); }));
  EXPECT_TRUE(desktop_.waitForFrame(window.id(), {0, 0, 1920, 1080}));
  desktop_.setMaximized(window.id(), false);
  EXPECT_TRUE(becomes([&] { return !desktop_.maximized(window.id()); }));
  desktop_.set(window.id(), WindowState::fullScreen, true);
  EXPECT_TRUE(becomes([&] { return desktop_.has(window.id(), WindowState::fullScreen); }));
  desktop_.set(window.id(), WindowState::fullScreen, false);
  EXPECT_TRUE(becomes([&] { return !desktop_.has(window.id(), WindowState::fullScreen); }));
  desktop_.set(window.id(), WindowState::hidden, true);
  EXPECT_TRUE(becomes([&] { return desktop_.has(window.id(), WindowState::hidden); }));
  desktop_.set(window.id(), WindowState::hidden, false);
  EXPECT_TRUE(becomes([&] { return desktop_.viewable(window.id()); }));
}

TEST_P(UnderEachManager, WindowsOutliveARestartOfTheManager) {
  const TestWindow first(session_.server().display());
  const TestWindow second(session_.server().display());
  session_.manager().restart();
  EXPECT_EQ(desktop_.clients().size(), 2U);
  EXPECT_TRUE(desktop_.activate(first.id()));
  EXPECT_TRUE(desktop_.activate(second.id()));
}

TEST_P(UnderEachManager, AScreenshotShowsTheWindowsWhereTheyStand) {
  const TestWindow window(session_.server().display(), {.colour = 0xcc3300});
  const auto terminal = session_.open(Application::xterm);
  desktop_.place(terminal.window(), {1000, 100, 800, 600});
  ASSERT_TRUE(desktop_.activate(window.id()));
  desktop_.place(window.id(), {0, 0, 960, 1080});
  ASSERT_TRUE(desktop_.waitForFrame(window.id(), {0, 0, 960, 1080}));
  const auto middleIsPainted = [&] {
    return screenshot(desktop_.connection(), Rect{480, 540, 1, 1}).pixel(0, 0) == 0xffcc3300;
  };
  EXPECT_TRUE(desktop_.waitUntil(middleIsPainted));
  const auto file = session_.home().path() / "desktop.png";
  session_.screenshot(file);
  const QImage image(QString::fromStdString(file.string()));
  EXPECT_EQ((PixelSize{image.width(), image.height()}), (PixelSize{1920, 1080}));
  EXPECT_GT(colourCount(image), 10);
}

TEST(NativeTileKeys, TileWithinEachManagerThatTakesThem) {
  for (const Manager manager : allManagers) {
    Session session({.manager = manager, .setup = {.nativeTileKeys = true}});
    const TestWindow window(session.server().display());
    ASSERT_TRUE(session.desktop().activate(window.id()));
    session.input().press(nativeTileLeft);
    EXPECT_TRUE(session.desktop().waitForFrame(window.id(), {0, 0, 960, 1080})) << traits(manager).name;
    session.input().press(nativeTileRight);
    EXPECT_TRUE(session.desktop().waitForFrame(window.id(), {960, 0, 960, 1080})) << traits(manager).name;
  }
}

TEST(Compositing, IsSwitchedOnAndOffWhereTheManagerCan) {
  for (const Manager manager : {Manager::xfwm4, Manager::metacity}) {
    for (const bool on : {true, false}) {
      Session session({.manager = manager, .setup = {.compositing = on}});
      EXPECT_EQ(session.desktop().composited(), on) << traits(manager).name;
    }
  }
}

}  // namespace tilwin::desktop
