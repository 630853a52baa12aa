#include "platform/macos/windows/MacTrust.h"

#include <gtest/gtest.h>

#include "tests/macos/c/accessibility/AccessiblePrograms.h"

namespace tilwin::macos {
namespace {

struct MacTrustTest : testing::Test {
  SimulatedAccessibility tree;
  c::AccessiblePrograms programs{tree};
  MacTrust trust;
};

TEST_F(MacTrustTest, WhatTheUserDecidedIsSeenAtOnce) {
  EXPECT_TRUE(trust.isTrusted());
  tree.isTrusted = false;
  EXPECT_FALSE(trust.isTrusted());
}

TEST_F(MacTrustTest, LookingAsksNobody) {
  tree.isTrusted = false;
  EXPECT_FALSE(trust.isTrusted());
  EXPECT_EQ(programs.promptCount(), 0);
}

TEST_F(MacTrustTest, AskingMakesTheSystemAskTheUser) {
  tree.isTrusted = false;
  trust.ask();
  EXPECT_EQ(programs.promptCount(), 1);
}

TEST_F(MacTrustTest, AUserWhoHasAgreedIsNotAskedAgain) {
  trust.ask();
  EXPECT_EQ(programs.promptCount(), 0);
}

}  // namespace
}  // namespace tilwin::macos
