#include "tests/app/settings/FormTexts.h"

#include <array>
#include <string>
#include <variant>

#include "tests/app/settings/SettingsForm.h"

namespace tilwin {
namespace {

/// Nouns of macOS; what contains another comes before it.
constexpr std::array nouns = std::to_array<Wording::Word>({{"System Settings", "#"},
                                                           {"Login Items", "#"},
                                                           {"Applications folder", "#"},
                                                           {"Desktop & Dock", "#"},
                                                           {"macOS", "#"},
                                                           {"Mac", "#"},
                                                           {"Finder", "#"},
                                                           {"menu bar", "#"},
                                                           {"Command", "#"},
                                                           {"Option", "#"}});

/// Settings of which the form has something to tell in every row that can have a note.
TilwinSettings talkative() {
  TilwinSettings settings{.showMenuBarIcon = false};
  for (int count = 0; count < 12; ++count) settings.customAreas.push_back(CustomArea::starter("Column"));
  settings.disabled.insert("leftHalf");
  return settings;
}

TEST_F(SettingsForm, EveryTextGoesThroughTheDesktopsWords) {
  desktop.words.spoken.words = nouns;
  desktop.disk.setFlag("com.apple.WindowManager", "EnableTilingByEdgeDrag", true);
  desktop.login.refuse("denied", LoginService::Status::requiresApproval);
  open(talkative());
  does(form::ToggleChanged{"openAtLogin", true});
  records(shortcutOf(SnapAction::rightHalf), {12, HotKeySpec::cmd});
  records(shortcutOf(SnapAction::topHalf), {12, 0});
  ASSERT_EQ(row("openAtLogin")->note, "# needs your approval: open #, General, #, and allow it.");
  ASSERT_EQ(row("nativeTiling")->controls.size(), 1);
  for (const std::string& text : textsOf(form())) {
    for (const Wording::Word& noun : nouns)
      EXPECT_EQ(text.find(noun.written), std::string::npos) << noun.written << " in: " << text;
  }
}

TEST_F(SettingsForm, EveryControlAndPictureHasAName) {
  desktop.disk.setFlag("com.apple.WindowManager", "EnableTilingByEdgeDrag", true);
  open(talkative());
  const auto expectNames = [](const FormRow& row) {
    for (const FormControl& control : row.controls)
      EXPECT_NE(std::visit(ControlTexts(), control).front(), "") << row.id;
  };
  visitForm(form(), expectNames,
            [](const FormPicture& picture) { EXPECT_NE(picture.label, "") << picture.id; });
  EXPECT_NE(section("shortcuts").search->label, "");
}

TEST_F(SettingsForm, ThePictureOfAnActionHasItsName) {
  open();
  EXPECT_EQ(row(shortcutOf(SnapAction::topHalf))->picture->label, "Top half");
}

}  // namespace
}  // namespace tilwin
