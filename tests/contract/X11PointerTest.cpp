#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "platform/qt/QtMainQueue.h"
#include "platform/x11/input/X11Pointer.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using desktop::Clock;
using desktop::Milliseconds;

/// A hand that drags over a real desktop, and a program that is told of it.
class X11PointerDrag : public testing::Test {
protected:
  X11PointerDrag() {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    x_.emplace(log_);
    held_.emplace(*x_);
    pointer_.emplace(*x_, *held_, queue_);
    queue_.watch(x_->fileDescriptor(), [this] { x_->dispatch(); });
    queue_.beforeEachSleep([this] { x_->dispatchQueued(); });
  }

  std::unique_ptr<PointerMonitor::Token> onMoves(const std::function<void()>& handler) {
    auto token = pointer_->addGlobal(PointerEvent::leftMouseDragged, [handler](PointerEvent) { handler(); });
    (void)pointer_->position();
    return token;
  }

  desktop::Input& hand() { return session_.input(); }

  /// Handles every event sent so far; what the handlers asked of the server is done when this returns.
  void arrive() {
    (void)pointer_->position();
    x_->dispatchQueued();
    (void)pointer_->position();
  }

  /// The number of the request made by this call; each request counts one.
  unsigned sequence() { return xcb_no_operation(x_->get()).sequence; }

  desktop::Session session_;
  FailingLog log_;
  qt::QtMainQueue queue_;
  std::optional<X11Connection> x_;
  std::optional<HeldWindow> held_;
  std::optional<X11Pointer> pointer_;
};

constexpr Milliseconds pause{30};

class X11PointerPace : public X11PointerDrag {};

using RawEvents = std::set<std::uint16_t>;

const RawEvents nothing;
const RawEvents keysAndMotion{XCB_INPUT_RAW_KEY_PRESS, XCB_INPUT_RAW_MOTION};

/// A server that sent every key press to this program would let it read along with everything typed.
class X11PointerPrivacy : public X11PointerDrag {
protected:
  X11PointerPrivacy() {
    x_->onEvent(XCB_GE_GENERIC, [this](const xcb_generic_event_t& event) {
      sent_.insert(reinterpret_cast<const xcb_ge_generic_event_t&>(event).event_type);
    });
    token_ = onMoves([] {});
  }

  /// What the server sends while the pointer moves and a key is pressed.
  RawEvents sentForMotionAndKey() {
    arrive();
    sent_.clear();
    hand().movePointer({300, 200});
    hand().movePointer({310, 220});
    hand().press("a");
    arrive();
    return sent_;
  }

private:
  RawEvents sent_;
  std::unique_ptr<PointerMonitor::Token> token_;
};

}  // namespace

TEST_F(X11PointerPace, TellsNoMoveSoonerThanAPauseAfterTheLastWasDealtWith) {
  int told = 0;
  std::optional<Clock::time_point> noted;
  const auto token = onMoves([&] {
    if (noted) {
      EXPECT_GT(Clock::now() - *noted, pause) << "after move " << told;
    }
    std::this_thread::sleep_for(pause * 2 / 3);
    noted = Clock::now();
    ++told;
  });
  hand().buttonDown();
  for (int x = 100; x < 200; ++x) {
    hand().movePointer({x, 100});
    runMainLoop(Milliseconds{4});
  }
  hand().buttonUp();
  EXPECT_GT(told, 3);
}

TEST_F(X11PointerPace, MotionsThatArriveTogetherAreOneMove) {
  int told = 0;
  const auto token = onMoves([&] { ++told; });
  hand().buttonDown();
  arrive();
  for (const int x : {100, 150, 200}) hand().movePointer({x, 100});
  arrive();
  EXPECT_EQ(told, 1);
  hand().buttonUp();
}

TEST_F(X11PointerPace, AMotionThatArrivesAfterTheReleaseIsNoMove) {
  int told = 0;
  const auto token = onMoves([&] { ++told; });
  hand().buttonDown();
  arrive();
  hand().buttonUp();
  hand().movePointer({300, 200});
  arrive();
  EXPECT_EQ(told, 0);
}

TEST_F(X11PointerPace, ThePlaceOfTheHeldWindowComesWithTheLookAtThePointer) {
  const auto window = session_.window({.area = {400, 300, 500, 400}});
  const auto frame = held_->frame(window.id());
  ASSERT_TRUE(frame);
  std::optional<Rect> seen;
  unsigned requests = 0;
  const auto token = onMoves([&] {
    const unsigned before = sequence();
    seen = held_->frame(window.id());
    requests = sequence() - before - 1;
  });
  hand().buttonDown();
  arrive();
  hand().movePointer({100, 50});
  arrive();
  hand().buttonUp();
  EXPECT_EQ(seen, frame);
  EXPECT_EQ(requests, 0) << "the frame was asked for by itself";
}

TEST_F(X11PointerPrivacy, KeysAndMotionAreSentOnlyWhileTheLeftButtonIsDown) {
  EXPECT_EQ(sentForMotionAndKey(), nothing);
  hand().buttonDown();
  EXPECT_EQ(sentForMotionAndKey(), keysAndMotion);
  hand().buttonUp();
  EXPECT_EQ(sentForMotionAndKey(), nothing);
}

TEST_F(X11PointerPrivacy, KeysAndMotionAreNotSentAfterADragThatEscapeCalledOff) {
  hand().buttonDown();
  ASSERT_EQ(sentForMotionAndKey(), keysAndMotion);
  hand().press("Escape");
  arrive();
  hand().buttonUp();
  EXPECT_EQ(sentForMotionAndKey(), nothing);
}

TEST_F(X11PointerPrivacy, KeysAndMotionAreNotSentWhenTheButtonGoesUpBeforeTheNextLook) {
  hand().buttonDown();
  ASSERT_EQ(sentForMotionAndKey(), keysAndMotion);
  hand().buttonUp();
  arrive();
  runMainLoop(2 * pause);
  EXPECT_EQ(sentForMotionAndKey(), nothing);
}

TEST_F(X11PointerPrivacy, KeysAndMotionAreNotSentAfterADragThatCameToRest) {
  hand().buttonDown();
  ASSERT_EQ(sentForMotionAndKey(), keysAndMotion);
  runMainLoop(4 * pause);
  hand().buttonUp();
  EXPECT_EQ(sentForMotionAndKey(), nothing);
}

TEST_F(X11PointerPrivacy, KeysAndMotionAreNotSentWhileAnotherButtonIsDown) {
  hand().buttonDown(3);
  EXPECT_EQ(sentForMotionAndKey(), nothing);
  hand().buttonUp(3);
  EXPECT_EQ(sentForMotionAndKey(), nothing);
}

TEST_F(X11PointerPrivacy, AListenerAddedDuringADragTakesNothingFromTheOthers) {
  hand().buttonDown();
  ASSERT_EQ(sentForMotionAndKey(), keysAndMotion);
  runMainLoop(4 * pause);
  const auto another = onMoves([] {});
  EXPECT_EQ(sentForMotionAndKey(), keysAndMotion);
  hand().buttonUp();
}

TEST_F(X11PointerPrivacy, NoKeyButEscapeCallsADragOffAndThatOneOnlyDuringADrag) {
  int calledOff = 0;
  const auto token = pointer_->addCancelled([&] { ++calledOff; });
  const auto press = [this](const char* key) {
    hand().press(key);
    arrive();
  };
  press("Escape");
  hand().buttonDown();
  arrive();
  for (const char* key : {"a", "Return", "Shift", "F1"}) press(key);
  EXPECT_EQ(calledOff, 0);
  press("Escape");
  EXPECT_EQ(calledOff, 1);
  hand().buttonUp();
  arrive();
  press("Escape");
  EXPECT_EQ(calledOff, 1);
}

}  // namespace tilwin::x11
