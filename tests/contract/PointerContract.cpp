#include "tests/contract/World.h"

namespace tilwin::contract {
namespace {

constexpr auto down = PointerEvent::leftMouseDown;
constexpr auto dragged = PointerEvent::leftMouseDragged;
constexpr auto up = PointerEvent::leftMouseUp;

constexpr Point here{400, 300};
constexpr Point there{430, 320};
constexpr Point farther{900, 200};
constexpr Point elsewhere{600, 700};

}  // namespace

std::unique_ptr<PointerMonitor::Token> PointerContract::add(PointerEvent events,
                                                            PointerMonitor::Handler handler) {
  auto token = pointer.addGlobal(events, std::move(handler));
  EXPECT_NE(token, nullptr);
  // The answer comes after everything that was asked for before: from now on a real desktop tells.
  (void)pointer.position();
  return token;
}

void PointerContract::watch(PointerEvent events) {
  tokens.push_back(add(events, [this](PointerEvent event) { seen.push_back(event); }));
}

testing::AssertionResult PointerContract::received(const std::vector<PointerEvent>& events) {
  world->settle([&] { return seen.size() >= events.size(); });
  if (seen == events) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "wanted " << testing::PrintToString(events) << ", but received "
                                     << testing::PrintToString(seen);
}

/// One more press and release: whatever comes, comes before them.
void PointerContract::letArrive() {
  int releases = 0;
  const auto last = add(up, [&](PointerEvent) { ++releases; });
  world->buttonDown();
  world->buttonUp();
  ASSERT_TRUE(world->comesTo(1, [&] { return releases; }));
}

testing::AssertionResult PointerContract::isTold(PointerEvent event, Point place) {
  return world->comesTo(Placed{event, place}, [&] { return places.empty() ? Placed{} : places.back(); });
}

void PointerContract::takeHoldAndDrag(Point to) {
  for (const auto events : {down, dragged, up}) {
    tokens.push_back(
        add(events, [this](PointerEvent event) { places.emplace_back(event, pointer.position()); }));
  }
  world->movePointer(here);
  world->buttonDown();
  ASSERT_TRUE(isTold(down, here));
  world->movePointer(to);
  ASSERT_TRUE(isTold(dragged, to));
}

void PointerContract::letGoInMotion(Point at) {
  world->movePointer(at);
  world->buttonUp();
}

TEST_P(PointerContract, APressAMoveAndAReleaseAreToldInTheirOrder) {
  world->movePointer(here);
  for (const auto events : {up, dragged, down}) watch(events);
  world->buttonDown();
  ASSERT_TRUE(received({down}));
  world->movePointer(there);
  ASSERT_TRUE(received({down, dragged}));
  world->buttonUp();
  EXPECT_TRUE(received({down, dragged, up}));
}

TEST_P(PointerContract, EachMonitorIsToldOfItsOwnEventsOnly) {
  world->movePointer(here);
  watch(up);
  world->buttonDown();
  world->movePointer(there);
  world->buttonUp();
  EXPECT_TRUE(received({up}));
}

TEST_P(PointerContract, ThePointerMovingWithoutTheButtonIsNotTold) {
  watch(dragged);
  world->movePointer(here);
  world->movePointer(there);
  letArrive();
  world->movePointer(here);
  letArrive();
  EXPECT_TRUE(received({}));
}

TEST_P(PointerContract, SeveralMonitorsOfOneKindAreAllTold) {
  watch(down);
  watch(down);
  world->buttonDown();
  EXPECT_TRUE(received({down, down}));
  world->buttonUp();
}

TEST_P(PointerContract, AMonitorIsToldNoMoreOnceItsTokenIsGone) {
  watch(down);
  watch(up);
  tokens.erase(tokens.begin());
  world->buttonDown();
  world->buttonUp();
  EXPECT_TRUE(received({up}));
}

TEST_P(PointerContract, AMonitorMayEndItselfWhileItIsTold) {
  std::unique_ptr<PointerMonitor::Token> token;
  token = add(down, [&](PointerEvent event) {
    seen.push_back(event);
    token.reset();
  });
  world->buttonDown();
  world->buttonUp();
  EXPECT_TRUE(received({down}));
  letArrive();
  EXPECT_TRUE(received({down}));
}

TEST_P(PointerContract, WhereAFastPointerComesToRestIsTold) {
  std::vector<Point> told;
  world->movePointer(here);
  watch(down);
  const auto token = add(dragged, [&](PointerEvent) { told.push_back(pointer.position()); });
  world->buttonDown();
  ASSERT_TRUE(received({down}));
  for (double step = 1; step <= 20; ++step) world->movePointer({here.x + 10 * step, here.y});
  world->movePointer(there);
  const auto last = [&] { return told.empty() ? std::nullopt : std::optional(told.back()); };
  EXPECT_TRUE(world->comesTo(std::optional(there), last));
  world->movePointer(here);
  EXPECT_TRUE(world->comesTo(std::optional(here), last));
  world->buttonUp();
}

TEST_P(PointerContract, AReleaseInMotionIsToldAfterAMoveToItsPlace) {
  takeHoldAndDrag(there);
  letGoInMotion(farther);
  EXPECT_TRUE(isTold(up, farther));
  EXPECT_EQ(places, (std::vector<Placed>{{down, here}, {dragged, there}, {dragged, farther}, {up, farther}}));
}

TEST_P(PointerContract, ThatMoveComesMoreThanAPauseAfterTheLastWasDealtWith) {
  std::vector<MainQueue::Seconds> moves;
  const auto token = add(dragged, [&](PointerEvent) { moves.push_back(world->mainQueue().uptime()); });
  takeHoldAndDrag(there);
  letGoInMotion(farther);
  ASSERT_TRUE(isTold(up, farther));
  ASSERT_EQ(moves.size(), 2);
  EXPECT_GT(moves.back() - moves.front(), PointerMonitor::betweenLooks);
}

TEST_P(PointerContract, AReleaseInMotionIsToldAtItsPlaceAlsoIfThePointerHasGoneOn) {
  takeHoldAndDrag(there);
  letGoInMotion(farther);
  // Long enough for the release to arrive, and shorter than it is held back.
  int turns = 0;
  world->settle([&] { return ++turns > 2; });
  world->movePointer(elsewhere);
  EXPECT_TRUE(isTold(up, farther));
  EXPECT_EQ(pointer.position(), elsewhere);
}

TEST_P(PointerContract, AReleaseWhereThePointerRestsIsToldWithoutAnotherMove) {
  takeHoldAndDrag(there);
  world->buttonUp();
  EXPECT_TRUE(isTold(up, there));
  EXPECT_EQ(places, (std::vector<Placed>{{down, here}, {dragged, there}, {up, there}}));
}

TEST_P(PointerContract, AButtonPressedWhileAReleaseIsHeldBackIsToldAfterThatRelease) {
  takeHoldAndDrag(there);
  for (const auto events : {up, down}) watch(events);
  letGoInMotion(farther);
  world->buttonDown();
  EXPECT_TRUE(received({up, down}));
  world->buttonUp();
  EXPECT_TRUE(received({up, down, up}));
}

TEST_P(PointerContract, ThePositionIsThatOfThePointer) {
  world->movePointer(here);
  EXPECT_EQ(pointer.position(), here);
  world->movePointer(there);
  EXPECT_EQ(pointer.position(), there);
}

TEST_P(CancelledDragContract, ADragThatIsCalledOffIsTold) {
  int calledOff = 0;
  const auto token = pointer.addCancelled([&] { ++calledOff; });
  watch(down);
  watch(up);
  world->buttonDown();
  ASSERT_TRUE(received({down}));
  world->callOffDrag();
  EXPECT_TRUE(world->comesTo(1, [&] { return calledOff; }));
  EXPECT_TRUE(received({down}));
  world->buttonUp();
  EXPECT_TRUE(received({down, up}));
  EXPECT_EQ(calledOff, 1);
}

}  // namespace tilwin::contract
