#include <gtest/gtest.h>

#include "tests/desktop/harness/GrabbedKey.h"
#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/ResourceUse.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

namespace {

class Hands : public testing::Test {
protected:
  Hands() {
    session_.desktop().activate(window_.id());
    window_.waitUntil([&] { return window_.hasFocus(); });
    window_.settle();
    window_.forget();
  }

  /// The keys that reach the window.
  std::vector<KeyPress> keys(std::size_t count) {
    window_.waitUntil([&] { return window_.recorded().keys.size() >= count; });
    return window_.recorded().keys;
  }

  Session session_;
  Input& input_ = session_.input();
  TestWindow window_{session_.server().display()};
};

constexpr std::uint16_t control = XCB_MOD_MASK_CONTROL;
constexpr std::uint16_t alt = XCB_MOD_MASK_1;
constexpr std::uint16_t capsLock = XCB_MOD_MASK_LOCK;

}  // namespace

TEST_F(Hands, PressACombination) {
  const auto moment = input_.press("Control+Alt+Left");
  const auto pressed = keys(3);
  ASSERT_EQ(pressed.size(), 3U);
  EXPECT_EQ(pressed.back().key, input_.keyboard().named("Left"));
  EXPECT_EQ(pressed.back().state, control | alt);
  EXPECT_GE(pressed.back().at, moment);
}

TEST_F(Hands, FindKeysByTheirPlaceUnderAnyLayout) {
  const auto onAmerican = input_.keyboard().named("q");
  session_.server().setKeyboardLayout("fr");
  EXPECT_EQ(input_.keyboard().named("a"), onAmerican);
  EXPECT_EQ(input_.keyboard().at("AD01"), onAmerican);
  input_.pressAt("AD01", "Control");
  EXPECT_EQ(keys(2).back().key, onAmerican);
}

TEST_F(Hands, SwitchTheLocks) {
  EXPECT_FALSE(input_.capsLock());
  input_.setCapsLock(true);
  EXPECT_TRUE(input_.capsLock());
  input_.press("a");
  const auto pressed = keys(2);
  ASSERT_EQ(pressed.size(), 2U);
  EXPECT_EQ(pressed.back().state, capsLock);
  input_.setCapsLock(false);
  EXPECT_FALSE(input_.capsLock());
  input_.setNumLock(true);
  EXPECT_TRUE(input_.numLock());
  input_.setNumLock(false);
  EXPECT_FALSE(input_.numLock());
}

TEST_F(Hands, HoldAKeyUntilToldOtherwise) {
  input_.keyDown("Shift");
  input_.press("a");
  input_.keyUp("Shift");
  input_.press("a");
  const auto pressed = keys(3);
  ASSERT_EQ(pressed.size(), 3U);
  EXPECT_EQ(pressed[1].state, XCB_MOD_MASK_SHIFT);
  EXPECT_EQ(pressed[2].state, 0);
}

TEST_F(Hands, ClickWhereTheyPoint) {
  input_.click({400, 400});
  window_.waitUntil([&] { return !window_.recorded().buttons.empty(); });
  const auto buttons = window_.recorded().buttons;
  ASSERT_EQ(buttons.size(), 1U);
  EXPECT_EQ(buttons.front().position, (PixelPoint{400, 400}));
}

TEST_F(Hands, DoNotKnowAKeyThatIsNotThere) { EXPECT_THROW(input_.press("Control+Hyper"), HarnessError); }

TEST_F(Hands, FindACombinationTakenByAnotherProgram) {
  const std::string display = session_.server().display();
  EXPECT_FALSE(keyIsGrabbed(display, "Control+Alt+Left"));
  {
    const GrabbedKey other(display, "Control+Alt+Left");
    EXPECT_TRUE(keyIsGrabbed(display, "Control+Alt+Left"));
    EXPECT_THROW(GrabbedKey(display, "Control+Alt+Left"), HarnessError);
    input_.press("Control+Alt+Left");
    EXPECT_EQ(keys(2).size(), 2U) << "only the modifiers reach the window";
  }
  session_.desktop().waitUntil([&] { return !keyIsGrabbed(display, "Control+Alt+Left"); });
  EXPECT_FALSE(keyIsGrabbed(display, "Control+Alt+Left"));
}

TEST_F(Hands, SeeWhatAProgramCosts) {
  const auto use = useOf(session_.manager().process().pid());
  ASSERT_TRUE(use);
  EXPECT_GT(use->proportionalKiB, 1000);
  EXPECT_GT(use->wakeUps, 0);
  EXPECT_EQ(use->threads, 1);
}

}  // namespace tilwin::desktop
