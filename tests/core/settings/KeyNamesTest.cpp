#include "core/settings/KeyNames.h"

#include <gtest/gtest.h>

#include <set>

namespace tilwin {
namespace {

TEST(KeyNames, ThereAreNinetyOfDifferentKeys) {
  std::set<std::uint32_t> codes;
  std::set<std::string_view> names;
  for (const auto& entry : KeyNames::table()) {
    codes.insert(entry.keyCode);
    names.insert(entry.name);
  }
  EXPECT_EQ(KeyNames::table().size(), 90);
  EXPECT_EQ(codes.size(), 90);
  EXPECT_EQ(names.size(), 90);
}

TEST(KeyNames, KeysAreNamedByWhatIsOnThem) {
  EXPECT_EQ(KeyNames::name(0), "A");
  EXPECT_EQ(KeyNames::name(46), "M");
  EXPECT_EQ(KeyNames::name(23), "5");
  EXPECT_EQ(KeyNames::name(22), "6");
  EXPECT_EQ(KeyNames::name(42), "\\");
  EXPECT_EQ(KeyNames::name(50), "`");
  EXPECT_EQ(KeyNames::name(36), "↩");
  EXPECT_EQ(KeyNames::name(49), "Space");
  EXPECT_EQ(KeyNames::name(121), "Page Down");
  EXPECT_EQ(KeyNames::name(111), "F12");
  EXPECT_EQ(KeyNames::name(76), "Keypad ↩");
  EXPECT_EQ(KeyNames::name(92), "Keypad 9");
}

TEST(KeyNames, AKeyWithoutANameIsCalledByItsCode) {
  EXPECT_EQ(KeyNames::name(10), "Key 10");
  EXPECT_EQ(KeyNames::name(4294967295), "Key 4294967295");
}

TEST(KeyNames, DescribesModifiersInAFixedOrder) {
  EXPECT_EQ(KeyNames::describe({123, HotKeySpec::cmd | HotKeySpec::option | HotKeySpec::control}), "⌃⌥⌘←");
  EXPECT_EQ(KeyNames::describe(
                {24, HotKeySpec::cmd | HotKeySpec::option | HotKeySpec::control | HotKeySpec::shift}),
            "⌃⌥⇧⌘=");
  EXPECT_EQ(KeyNames::describe({10, HotKeySpec::cmd}), "⌘Key 10");
  EXPECT_EQ(KeyNames::describe({96, 0}), "F5");
}

TEST(KeyNames, OtherModifierBitsAreNotDescribed) { EXPECT_EQ(KeyNames::describe({0, 0x400 | 0x1000}), "⌃A"); }

}  // namespace
}  // namespace tilwin
