#include <ApplicationServices/ApplicationServices.h>
#include <Carbon/Carbon.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "platform/macos/support/CFOwned.h"
#include "tests/macos/c/objects/Values.h"
#include "tests/macos/ownership/OwnershipListener.h"

/// That a mistake in ownership is found, and that there is none where there is no mistake.

namespace tilwin::macos {
namespace {

using c::makeString;
using c::objects;
using Findings = std::vector<std::string>;

TEST(Ownership, AnObjectThatIsNeverReleasedIsFound) {
  CFRetain(makeString("left"));
  EXPECT_EQ(objects().takeFindings(), Findings{"Never released: CFString \"left\", owners: 2"});
}

TEST(Ownership, AnObjectThatIsReleasedOnceTooOftenIsFound) {
  const CFTypeRef text = makeString("twice");
  CFRelease(text);
  CFRelease(text);
  EXPECT_EQ(objects().takeFindings(), Findings{"CFRelease released once more CFString \"twice\""});
}

TEST(Ownership, AnObjectThatIsUsedAfterItsReleaseIsFound) {
  const CFStringRef text = makeString("gone");
  CFRelease(text);
  (void)CFGetTypeID(text);
  CFRetain(text);
  EXPECT_EQ(CFStringGetLength(text), 0);
  const Findings found = objects().takeFindings();
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0].substr(0, 35), "CFGetTypeID used after its release ");
  EXPECT_EQ(found[1].substr(0, 32), "CFRetain used after its release ");
  EXPECT_EQ(found[2].substr(0, 41), "CFStringGetLength used after its release ");
}

TEST(Ownership, WhatIsTakenForAnotherTypeOrIsNoObjectIsFound) {
  const CFTypeRef data = objects().make<c::DataObject>("bytes");
  (void)CFStringGetLength(static_cast<CFStringRef>(data));
  CFRelease(data);
  CFRelease(nullptr);
  const int nothing = 0;
  (void)CFHash(&nothing);
  EXPECT_EQ(objects().takeFindings(), (Findings{"CFStringGetLength cannot use CFData of 5 bytes",
                                                "CFRelease got NULL", "CFHash got what is no object"}));
}

void letAnObjectLeak() {
  (void)makeString("left");
  OwnershipListener().OnTestEnd(*testing::UnitTest::GetInstance()->current_test_info());
}

TEST(Ownership, AFindingFailsItsTest) {
  EXPECT_NONFATAL_FAILURE(letAnObjectLeak(), "Never released: CFString \"left\"");
}

TEST(Ownership, AnArrayOwnsItsEntriesUntilItEnds) {
  const CFTypeRef entry = makeString("entry");
  std::array values{entry};
  const CFTypeRef array = CFArrayCreate(kCFAllocatorDefault, values.data(), 1, &kCFTypeArrayCallBacks);
  CFRelease(entry);
  EXPECT_EQ(objects().owners(entry), 1);
  CFRelease(array);
  EXPECT_EQ(objects().owners(entry), 0);
}

TEST(Ownership, AnArrayWithoutCallbacksOwnsNothing) {
  const CFTypeRef entry = makeString("entry");
  std::array values{entry};
  const CFArrayRef array = CFArrayCreate(kCFAllocatorDefault, values.data(), 1, nullptr);
  CFRelease(entry);
  (void)CFGetTypeID(CFArrayGetValueAtIndex(array, 0));
  CFRelease(array);
  EXPECT_EQ(objects().takeFindings().size(), 1U);
}

TEST(Ownership, ADictionaryOwnsItsKeysAndValuesUntilItEnds) {
  CFTypeRef key = makeString("key");
  CFTypeRef value = makeString("value");
  const CFTypeRef dictionary = CFDictionaryCreate(
      kCFAllocatorDefault, &key, &value, 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
  EXPECT_EQ(objects().owners(key), 2);
  CFRelease(dictionary);
  EXPECT_EQ(objects().owners(key), 1);
  EXPECT_EQ(objects().owners(value), 1);
  CFRelease(key);
  CFRelease(value);
}

TEST(Ownership, ConstantsAreNeverUsedUp) {
  CFRelease(kCFBooleanTrue);
  CFRelease(kAXTrustedCheckOptionPrompt);
  EXPECT_NE(CFBooleanGetValue(kCFBooleanTrue), 0);
  EXPECT_EQ(objects().takeFindings(), Findings{});
  EXPECT_EQ(CFBooleanGetValue(kCFBooleanFalse), 0);
}

OSStatus keepsEvent(EventHandlerCallRef, EventRef, void*) { return noErr; }

/// Registers a hot key and installs a handler, as somebody does who never gives them back.
void leaveAHotKeyAndAHandler() {
  EventHotKeyRef hotKey = nullptr;
  ASSERT_EQ(RegisterEventHotKey(0, 0, {1, 7}, GetApplicationEventTarget(), 0, &hotKey), noErr);
  const EventTypeSpec pressed{kEventClassKeyboard, kEventHotKeyPressed};
  ASSERT_EQ(InstallEventHandler(GetApplicationEventTarget(), &keepsEvent, 1, &pressed, nullptr, nullptr),
            noErr);
}

TEST(Ownership, AHotKeyAndAHandlerThatAreLeftAreFoundAndDoNotDisturbTheNextTest) {
  for (int time = 0; time < 2; ++time) {
    leaveAHotKeyAndAHandler();
    Findings found = objects().takeFindings();
    std::ranges::sort(found);
    EXPECT_EQ(found,
              (Findings{"Never released: event handler, owners: 1", "Never released: hot key 7, owners: 1"}));
  }
}

TEST(Ownership, AHotKeyThatIsGivenBackTwiceIsFound) {
  EventHotKeyRef hotKey = nullptr;
  ASSERT_EQ(RegisterEventHotKey(0, 0, {1, 7}, GetApplicationEventTarget(), 0, &hotKey), noErr);
  EXPECT_TRUE(objects().hasOwned());
  ASSERT_EQ(UnregisterEventHotKey(hotKey), noErr);
  EXPECT_FALSE(objects().hasOwned());
  UnregisterEventHotKey(hotKey);
  EXPECT_EQ(objects().takeFindings(), Findings{"CFRelease released once more hot key 7"});
}

using OwnedText = CFOwned<CFStringRef>;

TEST(CFOwned, TakesOverWhatWasCreatedAndSharesWhatItOnlyGot) {
  const CFStringRef text = makeString("text");
  {
    const auto held = created(text);
    const auto shared = OwnedText::retained(text);
    EXPECT_EQ(objects().owners(text), 2);
    EXPECT_EQ(shared.get(), held.get());
  }
  EXPECT_EQ(objects().owners(text), 0);
}

TEST(CFOwned, EachCopyIsAnOwnerAndAMoveHandsOn) {
  auto first = created(makeString("text"));
  const CFStringRef text = first.get();
  auto second = first;
  EXPECT_EQ(objects().owners(text), 2);
  const auto third = std::move(second);
  EXPECT_EQ(objects().owners(text), 2);
  first = OwnedText();
  EXPECT_EQ(objects().owners(text), 1);
  EXPECT_TRUE(third);
  EXPECT_FALSE(first);
}

TEST(CFOwned, AssigningReleasesWhatWasHeldAndToItselfKeepsIt) {
  auto held = created(makeString("before"));
  const CFStringRef before = held.get();
  held = created(makeString("after"));
  EXPECT_EQ(objects().owners(before), 0);
  const auto& self = held;
  held = self;
  EXPECT_EQ(objects().owners(held.get()), 1);
}

TEST(CFOwned, NothingIsHeldForNull) {
  EXPECT_FALSE(created<CFStringRef>(nullptr));
  EXPECT_FALSE(OwnedText::retained(nullptr));
  const auto copy = OwnedText();
  EXPECT_EQ(OwnedText(copy).get(), nullptr);
}

TEST(CFOwned, AnObjectIsSeenAsItsOwnTypeAlone) {
  const auto text = created(makeString("text"));
  EXPECT_EQ(asType<CFStringRef>(text.get(), CFStringGetTypeID()), text.get());
  EXPECT_EQ(asType<CFDataRef>(text.get(), CFDataGetTypeID()), nullptr);
  EXPECT_EQ(asType<CFDataRef>(nullptr, CFDataGetTypeID()), nullptr);
}

}  // namespace
}  // namespace tilwin::macos
