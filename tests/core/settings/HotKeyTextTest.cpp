#include "core/settings/HotKeyText.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/settings/KeyNames.h"
#include "core/settings/TilwinSettings.h"

namespace tilwin {
namespace {

constexpr auto controlOption = HotKeySpec::control | HotKeySpec::option;

TEST(HotKeyText, IsThatOfPeopleWhoWriteScripts) {
  EXPECT_EQ(HotKeyText::write({123, controlOption}), "ctrl+alt+left");
  EXPECT_EQ(HotKeyText::write({36, HotKeySpec::cmd | HotKeySpec::shift}), "shift+super+return");
  EXPECT_EQ(HotKeyText::write({96, 0}), "f5");
  EXPECT_EQ(HotKeyText::write({27, controlOption}), "ctrl+alt+-");
  EXPECT_EQ(HotKeyText::write({200, 0}), "key200");
}

TEST(HotKeyText, EveryKeyAndDefaultShortcutReadsBack) {
  std::set<std::string> texts;
  for (const KeyNames::Entry& entry : KeyNames::table()) {
    const HotKeySpec spec{entry.keyCode, controlOption};
    EXPECT_EQ(HotKeyText::read(HotKeyText::write(spec)), spec) << entry.name;
    texts.insert(HotKeyText::write(spec));
  }
  EXPECT_EQ(texts.size(), KeyNames::table().size());
  for (const auto& shortcut : TilwinSettings::defaults()) {
    EXPECT_EQ(HotKeyText::read(HotKeyText::write(shortcut.spec)), shortcut.spec);
  }
  EXPECT_EQ(HotKeyText::read("key200"), (HotKeySpec{200, 0}));
}

TEST(HotKeyText, IsReadInOtherWordsToo) {
  EXPECT_EQ(HotKeyText::read("Control+Option+Left"), (HotKeySpec{123, controlOption}));
  EXPECT_EQ(HotKeyText::read("win + enter"), (HotKeySpec{36, HotKeySpec::cmd}));
  EXPECT_EQ(HotKeyText::read("Cmd+A"), (HotKeySpec{0, HotKeySpec::cmd}));
  EXPECT_EQ(HotKeyText::read("alt+ctrl+esc"), (HotKeySpec{53, controlOption}));
}

TEST(HotKeyText, IsNotReadIfItIsNone) {
  for (const char* text : {"", "ctrl", "ctrl+", "+a", "ctrl+alt", "hyper+a", "ctrl+nokey", "ctrl a", "key",
                           "keyx", "key99999999999", "ctrl+a+b"}) {
    EXPECT_EQ(HotKeyText::read(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tilwin
