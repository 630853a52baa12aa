// That what the stand-ins add to GNUstep's objects ends with them.

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <memory>

#include "platform/macos/support/Held.h"
#include "tests/macos/gnustep/Attached.h"

@interface TWBearer : NSObject
@end

@implementation TWBearer
@end

@interface TWBearerBelow : TWBearer
@end

@implementation TWBearerBelow
@end

namespace tilwin::macos {

TEST(Attached, AValueIsDroppedWhenItsObjectIsFreed) {
  const auto value = std::make_shared<int>(7);
  Attached<std::shared_ptr<int>> property("TWBearer");
  Attached<int> other("TWBearer");
  for (Class each : {[TWBearer class], [TWBearerBelow class]}) {
    const void* bearer = nullptr;
    {
      const auto held = owned<id>([[each alloc] init]);
      bearer = held.get();
      property.set(bearer, value);
      other.set(bearer, 8);
      EXPECT_EQ(property.of(bearer), value);
      EXPECT_EQ(other.of(bearer), 8);
    }
    EXPECT_EQ(property.of(bearer), nullptr);
    EXPECT_EQ(other.of(bearer), 0);
    EXPECT_EQ(value.use_count(), 1);
  }
}

TEST(Attached, AnObjectKeepsItsValueWhenAnotherIsFreed) {
  Attached<int> property("TWBearer");
  const auto kept = owned([[TWBearer alloc] init]);
  property.set(kept.get(), 7);
  property.set(owned([[TWBearer alloc] init]).get(), 8);
  EXPECT_EQ(property.of(kept.get()), 7);
}

TEST(Attached, WhatAViewSaysOfItselfEndsWithIt) {
  const auto help = owned([[NSMutableString alloc] initWithString:@"Help"]);
  NSUInteger const before = [help.get() retainCount];
  {
    const AutoreleasePool pool;
    const auto button = owned([[NSButton alloc] initWithFrame:NSZeroRect]);
    [button.get() setAccessibilityValue:help.get()];
    EXPECT_GT([help.get() retainCount], before);
  }
  EXPECT_EQ([help.get() retainCount], before);
}

TEST(Attached, AValueMayBeTheLastThatHoldsAnotherObject) {
  Attached<Held<id>> property("TWBearer");
  const void* inner = nullptr;
  {
    const auto outer = owned([[TWBearer alloc] init]);
    auto held = owned([[TWBearer alloc] init]);
    inner = held.get();
    property.set(inner, owned<id>([[NSObject alloc] init]));
    property.set(outer.get(), Held<id>::retained(held.get()));
    held = {};
    EXPECT_TRUE(property.of(inner));
  }
  EXPECT_FALSE(property.of(inner));
}

}  // namespace tilwin::macos
