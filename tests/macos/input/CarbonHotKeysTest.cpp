#include "platform/macos/input/CarbonHotKeys.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

#include "app/keys/HotKeyCenter.h"
#include "core/settings/TilwinSettings.h"
#include "platform/simulated/SimulatedMainQueue.h"
#include "tests/contract/AccessibilityWorld.h"
#include "tests/macos/c/keyboard/CarbonKeyboard.h"
#include "tests/macos/c/keyboard/EventManager.h"
#include "tests/macos/c/objects/CountedObjects.h"

namespace tilwin::contract {
namespace {

class MacHotKeysWorld : public AccessibilityWorld {
public:
  HotKeys& hotKeys() override { return hotKeys_; }

  void press(const HotKeySpec& spec) override { keyboard_.press(spec); }
  void pressUntilItRepeats(const HotKeySpec& spec) override {
    for (int event = 0; event < 3; ++event) keyboard_.keyDown(spec);
    keyboard_.keyUp(spec.keyCode);
  }
  void setLocks(bool capsLock, bool numLock) override { keyboard_.setLocks(capsLock, numLock); }
  void holdElsewhere(const HotKeySpec& spec) override { keyboard_.holdElsewhere(spec); }
  void letGoElsewhere(const HotKeySpec& spec) override { keyboard_.letGoElsewhere(spec); }

  bool settle(const std::function<bool()>& condition) override {
    keyboard_.runEventLoop();
    return condition();
  }

private:
  macos::c::CarbonKeyboard keyboard_;
  macos::CarbonHotKeys hotKeys_;
};

std::unique_ptr<World> makeMacHotKeysWorld() { return std::make_unique<MacHotKeysWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(MacOS, HotKeysContract, testing::Values(&makeMacHotKeysWorld));

// No window of this world limits its size.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ReportedFrameContract);
// These adapters need AppKit.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(CancelledDragContract);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(MaximizedWindowContract);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(MainQueueContract);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(PointerContract);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ScreenChangesContract);

}  // namespace tilwin::contract

namespace tilwin::macos {
namespace {

constexpr HotKeySpec left{123, HotKeySpec::control | HotKeySpec::option};
constexpr HotKeySpec right{124, HotKeySpec::control | HotKeySpec::option};
constexpr OSType testSignature = 0x54455354;  // "TEST"
using Ids = std::vector<std::uint32_t>;
using Answers = std::vector<OSStatus>;

struct CarbonHotKeysTest : testing::Test {
  CarbonHotKeysTest() {
    hotKeys.setPressHandler([this](std::uint32_t id) { presses.push_back(id); });
  }

  [[nodiscard]] std::optional<HotKeys::Reference> add(const HotKeySpec& spec, std::uint32_t id) {
    return hotKeys.add(spec, {testSignature, id});
  }
  static bool isRegistered(const HotKeySpec& spec) {
    return c::EventManager::shared().identityOf(spec).has_value();
  }

  c::CarbonKeyboard keyboard;
  CarbonHotKeys hotKeys;
  Ids presses;
};

TEST_F(CarbonHotKeysTest, AHotKeyIsRegisteredWithItsSignatureAndId) {
  ASSERT_TRUE(add(left, 3));
  const auto identity = c::EventManager::shared().identityOf(left);
  ASSERT_TRUE(identity);
  EXPECT_EQ(identity->signature, testSignature);
  EXPECT_EQ(identity->id, 3U);
}

TEST_F(CarbonHotKeysTest, APressThatNamesNoHotKeyOrAnUnknownOneDoesNothingAndEndsHere) {
  ASSERT_TRUE(add(left, 1));
  keyboard.post(std::nullopt);
  keyboard.post(EventHotKeyID{testSignature, 0});
  keyboard.post(EventHotKeyID{testSignature, 2});
  keyboard.runEventLoop();
  EXPECT_EQ(presses, Ids{});
  EXPECT_EQ(keyboard.takeAnswers(), (Answers{noErr, noErr, noErr}));
}

TEST_F(CarbonHotKeysTest, EveryPressEndsHereWithAndWithoutAHandler) {
  ASSERT_TRUE(add(left, 1));
  keyboard.press(left);
  keyboard.runEventLoop();
  hotKeys.setPressHandler(nullptr);
  keyboard.press(left);
  keyboard.runEventLoop();
  EXPECT_EQ(presses, Ids{1});
  EXPECT_EQ(keyboard.takeAnswers(), (Answers{noErr, noErr}));
}

TEST_F(CarbonHotKeysTest, APressThatComesAfterItsHotKeyWasRemovedDoesNothing) {
  const auto reference = add(left, 1);
  ASSERT_TRUE(reference);
  keyboard.press(left);
  hotKeys.remove(*reference);
  keyboard.runEventLoop();
  EXPECT_EQ(presses, Ids{});
}

TEST_F(CarbonHotKeysTest, ASignatureOfSomebodyElseIsNotLookedAt) {
  ASSERT_TRUE(add(left, 1));
  keyboard.post(EventHotKeyID{0, 1});
  keyboard.runEventLoop();
  EXPECT_EQ(presses, Ids{1});
}

TEST_F(CarbonHotKeysTest, NothingIsRegisteredOrInstalledBeforeTheFirstHotKey) {
  EXPECT_FALSE(c::objects().hasOwned());
}

TEST_F(CarbonHotKeysTest, AHandlerThatIsRefusedIsInstalledWithTheNextHotKey) {
  keyboard.refusesHandlers = true;
  ASSERT_TRUE(add(left, 1));
  keyboard.refusesHandlers = false;
  ASSERT_TRUE(add(right, 2));
  keyboard.press(left);
  keyboard.press(right);
  keyboard.runEventLoop();
  EXPECT_EQ(presses, (Ids{1, 2}));
}

TEST_F(CarbonHotKeysTest, InTheEndAllHotKeysAndTheHandlerAreGivenBack) {
  {
    CarbonHotKeys passing;
    ASSERT_TRUE(passing.add(left, {testSignature, 1}));
    ASSERT_TRUE(passing.add(right, {testSignature, 2}));
    EXPECT_TRUE(isRegistered(left));
  }
  EXPECT_FALSE(isRegistered(left));
  EXPECT_FALSE(c::objects().hasOwned());
}

TEST_F(CarbonHotKeysTest, TheHotKeyCenterRegistersAllDefaultsAndHearsThem) {
  SimulatedMainQueue time;
  HotKeyCenter center(hotKeys, time);
  std::vector<ShortcutOwner> heard;
  center.onTarget = [&](const ShortcutOwner& owner) { heard.push_back(owner); };
  EXPECT_TRUE(center.registerShortcuts({}).empty());
  const auto identity = c::EventManager::shared().identityOf(left);
  ASSERT_TRUE(identity);
  EXPECT_EQ(identity->signature, 0x54574631U);  // "TWF1"
  EXPECT_EQ(identity->id, 1U);
  keyboard.press(left);
  keyboard.runEventLoop();
  EXPECT_TRUE(heard.empty()) << "handled before the event handler returned";
  time.runDue();
  EXPECT_EQ(heard, std::vector<ShortcutOwner>{SnapAction::leftHalf});
}

}  // namespace
}  // namespace tilwin::macos
