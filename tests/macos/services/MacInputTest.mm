#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "app/windows/AXWindowProvider.h"
#include "platform/macos/displays/MacScreenChanges.h"
#include "platform/macos/displays/MacScreens.h"
#include "platform/macos/input/MacPointerMonitor.h"
#include "platform/macos/system/MacMainQueue.h"
#include "platform/simulated/SimulatedAccessibleDesktop.h"
#include "tests/contract/SimulatedWorld.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/desktop/Living.h"
#include "tests/macos/desktop/MacDesktop.h"
#include "tests/macos/gnustep/EventsElsewhere.h"
#include "tests/macos/gnustep/ScreensElsewhere.h"

namespace tilwin::macos {
namespace {

using namespace std::chrono_literals;

constexpr auto down = PointerEvent::leftMouseDown;
constexpr auto dragged = PointerEvent::leftMouseDragged;
constexpr auto up = PointerEvent::leftMouseUp;

NSEvent* mouseEvent(NSEventType type) {
  return [NSEvent mouseEventWithType:type
                            location:[NSEvent mouseLocation]
                       modifierFlags:0
                           timestamp:0
                        windowNumber:0
                             context:nil
                         eventNumber:0
                          clickCount:1
                            pressure:1];
}

/// The mouse of the private desktop, used in windows of other programs; AppKit's main queue and screens.
class MacInputWorld : public contract::SimulatedWorld {
public:
  MacInputWorld() = default;
  MacInputWorld(const MacInputWorld&) = delete;
  MacInputWorld& operator=(const MacInputWorld&) = delete;
  ~MacInputWorld() override { disconnectScreens(); }

  std::shared_ptr<DesktopWindows> provider() override { return provider_; }
  MainQueue& mainQueue() override { return queue_; }
  PointerMonitor& pointer() override { return pointer_; }
  ScreenChanges& screenChanges() override { return changes_; }

  void buttonDown() override {
    isDown_ = true;
    deliverElsewhere(mouseEvent(NSLeftMouseDown));
  }
  void buttonUp() override {
    isDown_ = false;
    deliverElsewhere(mouseEvent(NSLeftMouseUp));
  }
  void movePointer(Point to) override {
    macDesktop().input().movePointer({static_cast<int>(to.x), static_cast<int>(to.y)});
    deliverElsewhere(mouseEvent(isDown_ ? NSLeftMouseDragged : NSMouseMoved));
  }
  void takeRoomAtTop(double points) override {
    auto all = MacScreens().screens();
    all.front().visibleFrame.height -= points;
    std::vector<ScreenElsewhere> made;
    made.reserve(all.size());
    for (const auto& each : all) made.push_back({each.frame, each.visibleFrame, {}});
    connectScreens(std::move(made));
  }
  bool settle(const std::function<bool()>& condition) override { return runEventLoopUntil(condition, 5s); }

private:
  AutoreleasePool pool_;
  bool isDown_ = false;
  MacMainQueue queue_;
  MacPointerMonitor pointer_{queue_};
  MacScreenChanges changes_;
  MacScreens screens_;
  SimulatedAccessibleDesktop elsewhere_;
  std::shared_ptr<DesktopWindows> provider_ =
      std::make_shared<AXWindowProvider>(elsewhere_.tree, elsewhere_.workspace, screens_);
};

std::unique_ptr<contract::World> makeMacInputWorld() { return std::make_unique<MacInputWorld>(); }

/// A window of this program.
struct MacPointerTest : testing::Test {
  static void clickHere() {
    for (const NSEventType type : {NSLeftMouseDown, NSLeftMouseUp}) [NSApp sendEvent:mouseEvent(type)];
  }
  static void clickElsewhere() {
    for (const NSEventType type : {NSLeftMouseDown, NSLeftMouseUp}) deliverElsewhere(mouseEvent(type));
  }
  PointerMonitor::Handler note() {
    return [this](PointerEvent event) { seen.push_back(event); };
  }

  AutoreleasePool pool;
  MacMainQueue queue;
  MacPointerMonitor pointer{queue};
  std::vector<PointerEvent> seen;
};

TEST_F(MacPointerTest, ALocalMonitorIsToldOfClicksInThisProgramAndAGlobalOneOfClicksInOthers) {
  const auto local = pointer.addLocal(up, note());
  ASSERT_NE(local, nullptr);
  clickElsewhere();
  EXPECT_EQ(seen, std::vector<PointerEvent>());
  clickHere();
  EXPECT_EQ(seen, std::vector{up});
  const auto global = pointer.addGlobal(down, note());
  clickElsewhere();
  EXPECT_EQ(seen, (std::vector{up, down}));
}

TEST_F(MacPointerTest, WhatALocalMonitorSawReachesTheWindowUnchanged) {
  std::vector<NSEvent*> reached;
  auto* const events = &reached;
  const auto token = pointer.addLocal(up, note());
  id const after = [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMask(up)
                                                         handler:^(NSEvent* event) {
                                                           events->push_back(event);
                                                           return event;
                                                         }];
  NSEvent* const sent = mouseEvent(NSLeftMouseUp);
  [NSApp sendEvent:sent];
  [NSEvent removeMonitor:after];
  EXPECT_EQ(reached, std::vector{sent});
  EXPECT_EQ(seen, std::vector{up});
}

TEST_F(MacPointerTest, AMonitorGoesWithItsToken) {
  const auto before = eventMonitors();
  const Living living({"TWEventMonitor"});
  auto local = pointer.addLocal(up, note());
  auto global = pointer.addGlobal(up, note());
  EXPECT_EQ(eventMonitors(), before + 2);
  EXPECT_EQ(living.count(), 2);
  local.reset();
  global.reset();
  EXPECT_EQ(eventMonitors(), before);
  EXPECT_EQ(living.count(), 0);
  clickHere();
  clickElsewhere();
  EXPECT_EQ(seen, std::vector<PointerEvent>());
}

TEST_F(MacPointerTest, AHandlerLivesUntilItReturnsAndGoesWithItsToken) {
  std::unique_ptr<PointerMonitor::Token> token;
  auto owned = std::make_shared<int>(7);
  const std::weak_ptr<int> watched = owned;
  int read = 0;
  token = pointer.addLocal(up, [&token, &read, owned = std::move(owned)](PointerEvent) {
    token.reset();
    read = *owned;
  });
  clickHere();
  EXPECT_EQ(read, 7);
  EXPECT_TRUE(watched.expired());
}

TEST_F(MacPointerTest, AMonitorThatAnotherOneEndsIsToldNoMore) {
  std::unique_ptr<PointerMonitor::Token> second;
  const auto first = pointer.addGlobal(up, [&](PointerEvent) { second.reset(); });
  second = pointer.addGlobal(up, note());
  clickElsewhere();
  EXPECT_EQ(seen, std::vector<PointerEvent>());
}

TEST_F(MacPointerTest, AReleaseInMotionReachesItsWindowAtOnceAndIsToldAfterAMoveThere) {
  const auto pressed = pointer.addGlobal(down, note());
  const auto moved = pointer.addGlobal(dragged, note());
  const auto released = pointer.addLocal(up, note());
  const auto reached = std::make_shared<int>(0);
  id const after = [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMask(up)
                                                         handler:^(NSEvent* event) {
                                                           ++*reached;
                                                           return event;
                                                         }];
  auto& hand = macDesktop().input();
  hand.movePointer({100, 100});
  deliverElsewhere(mouseEvent(NSLeftMouseDown));
  hand.movePointer({200, 100});
  deliverElsewhere(mouseEvent(NSLeftMouseDragged));
  hand.movePointer({300, 100});
  [NSApp sendEvent:mouseEvent(NSLeftMouseUp)];
  [NSEvent removeMonitor:after];
  EXPECT_EQ(*reached, 1);
  EXPECT_TRUE(runEventLoopUntil([&] { return seen.size() >= 4; }));
  EXPECT_EQ(seen, (std::vector{down, dragged, dragged, up}));
}

TEST_F(MacPointerTest, NothingIsToldOfAReleaseThatIsHeldBackOnceTheMonitorHasGone) {
  std::optional<MacPointerMonitor> brief(std::in_place, queue);
  const auto tokens = std::array{brief->addGlobal(down, note()), brief->addGlobal(dragged, note()),
                                 brief->addGlobal(up, note())};
  auto& hand = macDesktop().input();
  hand.movePointer({100, 100});
  deliverElsewhere(mouseEvent(NSLeftMouseDown));
  deliverElsewhere(mouseEvent(NSLeftMouseDragged));
  hand.movePointer({300, 100});
  deliverElsewhere(mouseEvent(NSLeftMouseUp));
  const auto before = seen.size();
  brief.reset();
  EXPECT_FALSE(runEventLoopUntil([&] { return seen.size() != before; }, 2 * PointerMonitor::betweenLooks));
}

TEST_F(MacPointerTest, DragsCannotBeCancelled) {
  EXPECT_EQ(pointer.addCancelled([] {}), nullptr);
}

TEST_F(MacPointerTest, WithoutAScreenThePositionIsStillTold) {
  connectScreens({});
  const Point told = pointer.position();
  disconnectScreens();
  EXPECT_EQ(told.x, pointer.position().x);
}

}  // namespace
}  // namespace tilwin::macos

namespace tilwin::contract {

INSTANTIATE_TEST_SUITE_P(MacOS, MainQueueContract, testing::Values(&macos::makeMacInputWorld));
INSTANTIATE_TEST_SUITE_P(MacOS, PointerContract, testing::Values(&macos::makeMacInputWorld));
INSTANTIATE_TEST_SUITE_P(MacOS, ScreenChangesContract, testing::Values(&macos::makeMacInputWorld));
// macOS lets nobody cancel a drag.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(CancelledDragContract);

}  // namespace tilwin::contract
