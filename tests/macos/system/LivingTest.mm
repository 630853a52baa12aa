#include "tests/macos/desktop/Living.h"

#include <gtest/gtest.h>

#include "platform/macos/support/Held.h"

@interface TWMortal : NSObject
@end

@implementation TWMortal
@end

namespace tilwin::macos {

TEST(Living, CountsTheObjectsOfAClassUntilTheyAreFreed) {
  const auto before = owned([[TWMortal alloc] init]);
  const Living living({"TWMortal"});
  {
    const auto mortal = owned([[TWMortal alloc] init]);
    EXPECT_EQ(living.count(), 1);
  }
  EXPECT_EQ(living.count(), 0);
}

TEST(Living, AClassThatDoesNotExistIsRefused) { EXPECT_THROW(Living({"TWUnborn"}), std::logic_error); }

}  // namespace tilwin::macos
