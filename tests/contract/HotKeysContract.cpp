#include "tests/contract/World.h"

namespace tilwin::contract {
namespace {

constexpr std::uint32_t controlOption = HotKeySpec::control | HotKeySpec::option;
constexpr HotKeySpec left{123, controlOption};
constexpr HotKeySpec right{124, controlOption};
constexpr HotKeySpec leftWithShift{123, controlOption | HotKeySpec::shift};
constexpr HotKeySpec leftWithCommand{123, controlOption | HotKeySpec::cmd};
constexpr HotKeySpec letterU{32, controlOption};
constexpr HotKeySpec equalsSign{24, controlOption};
constexpr HotKeySpec function5{96, 0};
constexpr HotKeySpec noSuchKey{200, controlOption};

constexpr std::uint32_t signature = 0x54455354;  // "TEST"

}  // namespace

void HotKeysContract::SetUp() {
  hotKeys.setPressHandler([this](std::uint32_t id) { presses.push_back(id); });
}

void HotKeysContract::TearDown() { hotKeys.setPressHandler(nullptr); }

std::optional<HotKeys::Reference> HotKeysContract::add(const HotKeySpec& spec, std::uint32_t id) {
  return hotKeys.add(spec, {signature, id});
}

testing::AssertionResult HotKeysContract::received(const std::vector<std::uint32_t>& ids) {
  world->settle([&] { return presses.size() >= ids.size(); });
  if (presses == ids) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "wanted " << testing::PrintToString(ids) << ", but received "
                                     << testing::PrintToString(presses);
}

TEST_P(HotKeysContract, APressReachesTheHandlerWithTheIdOfItsHotKey) {
  ASSERT_TRUE(add(left, 1));
  ASSERT_TRUE(add(right, 2));
  ASSERT_TRUE(add(letterU, 7));
  world->press(right);
  world->press(letterU);
  world->press(left);
  EXPECT_TRUE(received({2, 7, 1}));
}

TEST_P(HotKeysContract, PunctuationAndFunctionKeysWorkToo) {
  ASSERT_TRUE(add(equalsSign, 1));
  ASSERT_TRUE(add(function5, 2));
  world->press(equalsSign);
  world->press(function5);
  EXPECT_TRUE(received({1, 2}));
}

TEST_P(HotKeysContract, TheSameKeyWithOtherModifiersIsAnotherCombination) {
  ASSERT_TRUE(add(left, 1));
  ASSERT_TRUE(add(leftWithShift, 2));
  world->press(leftWithCommand);
  world->press(leftWithShift);
  world->press(left);
  EXPECT_TRUE(received({2, 1}));
}

TEST_P(HotKeysContract, LockKeysDoNotGetInTheWay) {
  ASSERT_TRUE(add(left, 1));
  ASSERT_TRUE(add(letterU, 2));
  for (const auto& [caps, num] : {std::pair{true, false}, {false, true}, {true, true}}) {
    presses.clear();
    world->setLocks(caps, num);
    world->press(left);
    world->press(letterU);
    EXPECT_TRUE(received({1, 2})) << "Caps Lock " << caps << ", Num Lock " << num;
  }
  world->setLocks(false, false);
}

TEST_P(HotKeysContract, AKeyThatRepeatsIsOnePress) {
  ASSERT_TRUE(add(left, 1));
  ASSERT_TRUE(add(right, 2));
  world->pressUntilItRepeats(left);
  world->press(right);
  EXPECT_TRUE(received({1, 2}));
}

TEST_P(HotKeysContract, PressingAgainIsAnotherPress) {
  ASSERT_TRUE(add(left, 1));
  world->press(left);
  world->press(left);
  world->press(left);
  EXPECT_TRUE(received({1, 1, 1}));
}

TEST_P(HotKeysContract, ACombinationThatAnotherProgramHoldsIsRefused) {
  world->holdElsewhere(left);
  EXPECT_FALSE(add(left, 1));
  EXPECT_TRUE(add(right, 2));
}

TEST_P(HotKeysContract, ARefusalDoesNotHarmTheOthers) {
  world->holdElsewhere(left);
  ASSERT_FALSE(add(left, 1));
  ASSERT_TRUE(add(right, 2));
  world->press(left);
  world->press(right);
  EXPECT_TRUE(received({2}));
}

TEST_P(HotKeysContract, ACombinationGivenBackByAnotherProgramCanBeHad) {
  world->holdElsewhere(left);
  ASSERT_FALSE(add(left, 1));
  world->letGoElsewhere(left);
  ASSERT_TRUE(add(left, 3));
  world->press(left);
  EXPECT_TRUE(received({3}));
}

TEST_P(HotKeysContract, TheSameCombinationTwiceIsRefusedTheSecondTime) {
  ASSERT_TRUE(add(left, 1));
  EXPECT_FALSE(add(left, 2));
  world->press(left);
  EXPECT_TRUE(received({1}));
}

TEST_P(HotKeysContract, AKeyThatNoKeyboardHasIsRefused) { EXPECT_FALSE(add(noSuchKey, 1)); }

TEST_P(HotKeysContract, ARemovedHotKeyIsHeardNoMore) {
  const auto reference = add(left, 1);
  ASSERT_TRUE(reference);
  ASSERT_TRUE(add(right, 2));
  hotKeys.remove(*reference);
  world->press(left);
  world->press(right);
  EXPECT_TRUE(received({2}));
}

TEST_P(HotKeysContract, ARemovedCombinationCanBeRegisteredAgain) {
  const auto reference = add(left, 1);
  ASSERT_TRUE(reference);
  hotKeys.remove(*reference);
  const auto again = add(left, 5);
  ASSERT_TRUE(again);
  EXPECT_NE(*again, *reference);
  world->press(left);
  EXPECT_TRUE(received({5}));
}

TEST_P(HotKeysContract, RemovingTwiceOrWhatNeverWasIsIgnored) {
  const auto reference = add(left, 1);
  ASSERT_TRUE(reference);
  ASSERT_TRUE(add(right, 2));
  hotKeys.remove(*reference);
  hotKeys.remove(*reference);
  hotKeys.remove(*reference + 1000);
  world->press(right);
  EXPECT_TRUE(received({2}));
}

TEST_P(HotKeysContract, ALaterHandlerReplacesTheEarlierOne) {
  ASSERT_TRUE(add(left, 1));
  std::vector<std::uint32_t> later;
  hotKeys.setPressHandler([&](std::uint32_t id) { later.push_back(id); });
  world->press(left);
  EXPECT_TRUE(world->comesTo(std::vector<std::uint32_t>{1}, [&] { return later; }));
  EXPECT_EQ(presses, std::vector<std::uint32_t>{});
  hotKeys.setPressHandler(nullptr);
}

TEST_P(HotKeysContract, WithoutAHandlerAPressDoesNothing) {
  ASSERT_TRUE(add(left, 1));
  ASSERT_TRUE(add(right, 2));
  hotKeys.setPressHandler(nullptr);
  world->press(left);
  EXPECT_TRUE(world->settle([] { return true; }));
  EXPECT_EQ(presses, std::vector<std::uint32_t>{});
}

TEST_P(HotKeysContract, AHandlerMayRemoveTheVeryHotKeyThatWasPressed) {
  const auto reference = add(left, 1);
  ASSERT_TRUE(reference);
  ASSERT_TRUE(add(right, 2));
  hotKeys.setPressHandler([&](std::uint32_t id) {
    presses.push_back(id);
    if (id == 1) hotKeys.remove(*reference);
  });
  world->press(left);
  EXPECT_TRUE(received({1}));
  world->press(left);
  world->press(right);
  EXPECT_TRUE(received({1, 2}));
}

}  // namespace tilwin::contract
