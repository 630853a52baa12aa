// What the stand-in for Core Foundation does as the framework does, where a mistake in an adapter would show.

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/macos/support/CFOwned.h"
#include "tests/macos/c/objects/Values.h"
#include "tests/macos/c/preferences/StoredPreferences.h"

namespace tilwin::macos {
namespace {

using c::makeString;
using c::objects;

std::string madeFromBytes(const std::string& bytes, bool isExternal) {
  const auto text = created(CFStringCreateWithBytes(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bytes.data()), static_cast<CFIndex>(bytes.size()),
      kCFStringEncodingUTF8, static_cast<Boolean>(isExternal)));
  return c::utf8Of(text.get(), "the test");
}

TEST(CoreFoundation, AByteOrderMarkIsLeftOutOfAnExternalRepresentationOnly) {
  const std::string mark = "\xef\xbb\xbf";
  EXPECT_EQ(madeFromBytes(mark + "a" + mark, true), "a" + mark);
  EXPECT_EQ(madeFromBytes(mark + "a", false), mark + "a");
  EXPECT_EQ(madeFromBytes("a", true), "a");
}

/// What a dictionary with the key "key" has for an equal key and for the same one.
std::vector<bool> foundByEqualAndBySameKey(const CFDictionaryKeyCallBacks* callBacks) {
  const auto key = created(makeString("key"));
  const auto equal = created(makeString("key"));
  const void* keys = key.get();
  const void* values = kCFBooleanTrue;
  const auto dictionary = created(CFDictionaryCreate(kCFAllocatorDefault, &keys, &values, 1, callBacks,
                                                     &kCFTypeDictionaryValueCallBacks));
  return {CFDictionaryGetValue(dictionary.get(), equal.get()) == kCFBooleanTrue,
          CFDictionaryGetValue(dictionary.get(), key.get()) == kCFBooleanTrue};
}

TEST(CoreFoundation, ADictionaryWithoutCallbacksForKeysFindsOnlyTheSamePointer) {
  EXPECT_EQ(foundByEqualAndBySameKey(&kCFTypeDictionaryKeyCallBacks), (std::vector{true, true}));
  EXPECT_EQ(foundByEqualAndBySameKey(nullptr), (std::vector{false, true}));
}

TEST(CoreFoundation, APreferenceThatNoPropertyListHoldsIsFoundAndNotStored) {
  c::StoredPreferences preferences;
  preferences.store(c::StoredPreferences::ownDomain, "key", "before");
  {
    const auto key = created(makeString("key"));
    const auto element = created(AXUIElementCreateSystemWide());
    CFPreferencesSetAppValue(key.get(), element.get(), kCFPreferencesCurrentApplication);
  }
  CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
  EXPECT_EQ(preferences.stored(c::StoredPreferences::ownDomain, "key"), c::StoredValue("before"));
  EXPECT_EQ(objects().takeFindings(),
            std::vector<std::string>{"CFPreferencesSetAppValue cannot store AXUIElement of the system"});
}

}  // namespace
}  // namespace tilwin::macos
