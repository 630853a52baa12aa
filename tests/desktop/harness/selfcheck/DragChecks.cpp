#include <gtest/gtest.h>

#include <cmath>

#include "tests/desktop/harness/Session.h"
#include "tests/desktop/harness/selfcheck/ManagerParameter.h"

namespace tilwin::desktop {

namespace {

constexpr Rect start{600, 300, 700, 500};

/// A window at its start, taken hold of in ways that each manager turns into a move of its own.
class DraggedUnderEachManager : public testing::TestWithParam<Manager> {
protected:
  void place(WindowId window) {
    ASSERT_TRUE(desktop_.activate(window));
    desktop_.place(window, start);
    ASSERT_TRUE(desktop_.waitForFrame(window, start));
    desktop_.settle();
  }

  /// Whether the window moves along, keeping its size, within what a manager needs to begin a move.
  bool follows(WindowId window, PixelPoint by) {
    constexpr double threshold = 12;
    return desktop_.waitForFrame(window, {start.x + by.x, start.y + by.y, start.width, start.height},
                                 threshold, Milliseconds{1000});
  }

  void moveOn(PixelPoint by) {
    const PixelPoint now = input_.pointer();
    input_.comeToRest({now.x + by.x, now.y + by.y});
  }

  Session session_{{.manager = GetParam()}};
  Desktop& desktop_ = session_.desktop();
  Input& input_ = session_.input();
};

INSTANTIATE_TEST_SUITE_P(, DraggedUnderEachManager, testing::ValuesIn(draggingManagers), nameOfManager);

constexpr PixelPoint away{-150, 90};

}  // namespace

TEST_P(DraggedUnderEachManager, AWindowFollowsItsTitleBarBeforeItIsLetGoAndStaysWhereItIsLetGo) {
  const TestWindow window = session_.window();
  place(window.id());
  input_.takeHold(desktop_.titleBar(window.id()));
  moveOn(away);
  EXPECT_TRUE(follows(window.id(), away));
  input_.buttonUp();
  desktop_.settle();
  EXPECT_TRUE(follows(window.id(), away));
}

TEST_P(DraggedUnderEachManager, AWindowHeldToTheScreensEdgeStaysOnItsWorkspace) {
  constexpr Milliseconds longEnough{700};
  const TestWindow window = session_.window();
  place(window.id());
  input_.takeHold(desktop_.titleBar(window.id()));
  input_.comeToRest({1919, 500});
  desktop_.waitUntil([] { return false; }, longEnough);
  EXPECT_TRUE(desktop_.viewable(window.id()));
  EXPECT_EQ(desktop_.connection().numbers(desktop_.connection().root(), "_NET_CURRENT_DESKTOP"),
            std::vector<std::uint32_t>{0});
  input_.buttonUp();
}

TEST_P(DraggedUnderEachManager, AWindowFollowsTheHeaderBarItDraws) {
  const auto application = session_.open(Application::gtkHeaderBar);
  place(application.window());
  input_.takeHold(desktop_.titleBar(application.window()));
  moveOn(away);
  EXPECT_TRUE(follows(application.window(), away));
  input_.buttonUp();
}

TEST_P(DraggedUnderEachManager, EscapePutsTheWindowBackWhileTheButtonIsDown) {
  const TestWindow window = session_.window();
  place(window.id());
  input_.takeHold(desktop_.titleBar(window.id()));
  moveOn(away);
  ASSERT_TRUE(follows(window.id(), away));
  input_.press("Escape");
  EXPECT_TRUE(desktop_.waitForFrame(window.id(), start));
  input_.buttonUp();
  desktop_.settle();
  EXPECT_EQ(desktop_.frame(window.id()), start);
}

TEST_P(DraggedUnderEachManager, WithItsModifierAWindowFollowsByAnyPartOfIt) {
  const TestWindow window = session_.window();
  place(window.id());
  input_.keyDown(session_.manager().traits().moveModifier);
  input_.takeHold({800, 600});
  moveOn(away);
  EXPECT_TRUE(follows(window.id(), away));
  input_.buttonUp();
  input_.keyUp(session_.manager().traits().moveModifier);
}

TEST_P(DraggedUnderEachManager, AWindowFollowsALeftHandedPersonsThirdButton) {
  const TestWindow window = session_.window();
  place(window.id());
  input_.setLeftHanded(true);
  input_.takeHold(desktop_.titleBar(window.id()), 3);
  moveOn(away);
  EXPECT_TRUE(follows(window.id(), away));
  input_.buttonUp(3);
  input_.setLeftHanded(false);
}

TEST_P(DraggedUnderEachManager, AWindowThatKeepsManagersOutIsFoundOnTopByItsClass) {
  const std::string display = session_.server().display();
  EXPECT_EQ(desktop_.unmanagedOfClass("Sheet"), std::nullopt);
  TestWindow lower(display, {.className = "Sheet", .overrideRedirect = true});
  TestWindow upper(display, {.className = "Sheet", .area = {0, 0, 960, 1080}, .overrideRedirect = true});
  const TestWindow managed(display, {.className = "Sheet"});
  ASSERT_EQ(desktop_.unmanagedOfClass("Sheet"), upper.id());
  EXPECT_EQ(desktop_.topLevelArea(upper.id()), (Rect{0, 0, 960, 1080}));
  upper.unmap();
  EXPECT_TRUE(desktop_.waitUntil([&] { return desktop_.unmanagedOfClass("Sheet") == lower.id(); }));
}

}  // namespace tilwin::desktop
