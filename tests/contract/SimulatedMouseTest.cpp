#include <gtest/gtest.h>

#include "platform/simulated/SimulatedDesktop.h"

namespace tilwin {
namespace {

/// What a program under test gets to see of a simulated mouse.
struct SimulatedMouse : testing::Test {
  using Token = std::unique_ptr<PointerMonitor::Token>;

  Token watch(PointerEvent events) {
    return pointer.addGlobal(events, [this](PointerEvent event) { seen.push_back(event); });
  }

  SimulatedDesktop desktop;
  PointerMonitor& pointer = desktop.pointerMonitor();
  std::vector<PointerEvent> seen;
};

using enum PointerEvent;

TEST_F(SimulatedMouse, TellsEachMonitorOfItsEventsAlone) {
  const Token down = watch(leftMouseDown);
  const Token up = watch(leftMouseUp);
  desktop.mouse.press({10, 20});
  desktop.mouse.drag({30, 40});
  desktop.mouse.release();
  EXPECT_EQ(seen, (std::vector{leftMouseDown, leftMouseUp}));
  EXPECT_EQ(pointer.position(), (Point{30, 40}));
}

TEST_F(SimulatedMouse, IsDraggedOnlyWhileTheButtonIsDown) {
  const Token dragged = watch(leftMouseDragged);
  const Token up = watch(leftMouseUp);
  desktop.mouse.drag({30, 40});
  desktop.mouse.release();
  desktop.mouse.move({50, 60});
  EXPECT_TRUE(seen.empty());
  EXPECT_EQ(pointer.position(), (Point{50, 60}));
}

TEST_F(SimulatedMouse, TellsThisProgramsOwnEventsToLocalMonitorsAlone) {
  const Token global = watch(leftMouseUp);
  int local = 0;
  const Token own = pointer.addLocal(leftMouseUp, [&](PointerEvent) { ++local; });
  desktop.mouse.press({10, 20});
  desktop.mouse.releaseInThisProgram();
  EXPECT_TRUE(seen.empty());
  EXPECT_EQ(local, 1);
}

TEST_F(SimulatedMouse, CallsOffOnlyWhatIsUnderWay) {
  int calledOff = 0;
  const Token token = pointer.addCancelled([&] { ++calledOff; });
  desktop.mouse.cancel();
  EXPECT_EQ(calledOff, 0);
  desktop.mouse.press({10, 20});
  desktop.mouse.cancel();
  EXPECT_EQ(calledOff, 1);
}

TEST_F(SimulatedMouse, AMonitorMayGoWhileItIsTold) {
  Token token;
  token = pointer.addGlobal(leftMouseDown, [&](PointerEvent event) {
    token.reset();
    seen.push_back(event);
  });
  desktop.mouse.press({10, 20});
  desktop.mouse.press({10, 20});
  EXPECT_EQ(seen, std::vector{leftMouseDown});
  EXPECT_TRUE(desktop.mouse.monitors().empty());
}

/// Which window lies under a point, and where it stands.
struct SimulatedWindowUnderAPoint : testing::Test {
  SimulatedDesktop desktop;
  std::shared_ptr<DesktopWindows> windows = desktop.provider();
  SimulatedWindows::Handle below = desktop.windows.open({.title = "below", .frame = {100, 100, 400, 300}});
  SimulatedWindows::Handle above = desktop.windows.open({.title = "above", .frame = {200, 200, 400, 300}});

  [[nodiscard]] std::string titleAt(Point point) {
    const auto window = windows->window(point);
    return window ? window->title : "none";
  }
};

TEST_F(SimulatedWindowUnderAPoint, IsTheTopmost) {
  EXPECT_EQ(titleAt({300, 250}), "above");
  EXPECT_EQ(titleAt({150, 150}), "below");
  EXPECT_EQ(titleAt({50, 50}), "none");
  desktop.windows.focus(below);
  EXPECT_EQ(titleAt({300, 250}), "below");
}

TEST_F(SimulatedWindowUnderAPoint, IsNotAMinimisedOne) {
  desktop.windows.minimize(above);
  EXPECT_EQ(titleAt({300, 250}), "below");
}

TEST_F(SimulatedWindowUnderAPoint, IsNoneWhereThisProgramsOwnIsOnTop) {
  desktop.windows.find(above)->isOfThisProgram = true;
  EXPECT_EQ(titleAt({300, 250}), "none");
}

TEST_F(SimulatedWindowUnderAPoint, HasTheFrameItStandsAtAndNotTheOneAskedFor) {
  desktop.windows.find(above)->widthStep = 9;
  const auto id = windows->focusedWindow().value().id;
  EXPECT_TRUE(windows->setFrame(id, {200, 200, 500, 300}));
  EXPECT_EQ(windows->focusedWindow().value().frame, (Rect{200, 200, 500, 300}));
  EXPECT_EQ(windows->window({300, 250}).value().frame, (Rect{200, 200, 495, 300}));
  EXPECT_EQ(windows->frame(id), (Rect{200, 200, 495, 300}));
}

TEST_F(SimulatedWindowUnderAPoint, MayBeMovedAndHasNoFrameOnceItIsClosed) {
  const auto id = windows->window({150, 150}).value().id;
  EXPECT_TRUE(windows->setFrame(id, {0, 0, 400, 300}));
  EXPECT_EQ(windows->frame(id), (Rect{0, 0, 400, 300}));
  desktop.windows.close(below);
  EXPECT_EQ(windows->frame(id), std::nullopt);
  EXPECT_EQ(windows->frame(above), std::nullopt) << "nobody was told of it";
}

TEST(SimulatedScreens, TellOnceTheListHasChanged) {
  SimulatedDesktop desktop;
  std::vector<std::size_t> counts;
  desktop.screenChanges().onChange([&] { counts.push_back(desktop.provider()->displays().size()); });
  desktop.setDisplays("1440x900+0+0,1000x800+1440+0");
  desktop.windows.reserve(1, {.top = 25});
  EXPECT_EQ(counts, (std::vector<std::size_t>{2, 2}));
}

}  // namespace
}  // namespace tilwin
