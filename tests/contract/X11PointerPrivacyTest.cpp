#include <cstdint>
#include <memory>
#include <set>

#include "tests/contract/X11PointerDrag.h"

namespace tilwin::x11 {

namespace {

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
