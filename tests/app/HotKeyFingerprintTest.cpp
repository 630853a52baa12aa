#include "app/keys/HotKeyFingerprint.h"

#include <gtest/gtest.h>

#include "tests/core/SettingsFields.h"

namespace tilwin {
namespace {

TilwinSettings some() {
  TilwinSettings settings;
  settings.shortcuts["leftHalf"] = {0, 4096};
  settings.disabled = {"topLeft"};
  settings.customAreas = {CustomArea::starter("Notes"), CustomArea::starter("Chat")};
  settings.customAreas[0].shortcut = HotKeySpec{96, 0};
  return settings;
}

struct Fingerprint : testing::Test {
  [[nodiscard]] bool isSame() const {
    return HotKeyFingerprint::of(changed) == HotKeyFingerprint::of(before);
  }

  const TilwinSettings before = some();
  TilwinSettings changed = before;
};

TEST_F(Fingerprint, HoldsOverridesDisabledActionsAndEveryAreaInItsOrder) {
  const HotKeyFingerprint expected{
      .shortcuts = {{"leftHalf", {0, 4096}}},
      .disabled = {"topLeft"},
      .areas = {{before.customAreas[0].id, HotKeySpec{96, 0}}, {before.customAreas[1].id, std::nullopt}}};
  EXPECT_EQ(HotKeyFingerprint::of(before), expected);
}

TEST_F(Fingerprint, StaysTheSameWhateverElseChanges) {
  for (const SettingsField& field : settingsFields) {
    if (!field.isAboutHotKeys) field.choose(changed);
  }
  changed.customAreas[0].name = "Renamed";
  changed.customAreas[0].rect = {0, 0, 1, 1};
  EXPECT_TRUE(isSame());
}

TEST_F(Fingerprint, ChangesWithEverySettingThatIsAboutHotKeysAndNoOther) {
  for (const SettingsField& field : settingsFields) {
    TilwinSettings chosen;
    field.choose(chosen);
    EXPECT_EQ(HotKeyFingerprint::of(chosen) != HotKeyFingerprint::of({}), field.isAboutHotKeys) << field.key;
  }
}

TEST_F(Fingerprint, ChangesWithAnOverride) {
  changed.shortcuts["leftHalf"].modifiers = 2048;
  EXPECT_FALSE(isSame());
}

TEST_F(Fingerprint, ChangesWithADisabledAction) {
  changed.disabled.insert("topRight");
  EXPECT_FALSE(isSame());
}

TEST_F(Fingerprint, ChangesWithAnAreasShortcut) {
  changed.customAreas[0].shortcut.reset();
  EXPECT_FALSE(isSame());
}

TEST_F(Fingerprint, ChangesWithTheOrderAndNumberOfAreas) {
  std::swap(changed.customAreas[0], changed.customAreas[1]);
  EXPECT_FALSE(isSame());
  changed.customAreas = {before.customAreas[0]};
  EXPECT_FALSE(isSame());
}

}  // namespace
}  // namespace tilwin
