#include "core/doctor/Problems.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/doctor/Diagnoses.h"

namespace tilwin {
namespace {

using Texts = std::vector<std::string>;

/// Two keys refused under a window manager of this name.
Texts refusedUnder(const std::string& manager) {
  auto diagnosis = soundDiagnosis();
  diagnosis.desktop.manager->name = manager;
  for (ShortcutFacts& shortcut : diagnosis.shortcuts) shortcut.state = ShortcutFacts::State::refused;
  return Problems::of(diagnosis);
}

TEST(Problems, AreNoneOnASoundDesktop) { EXPECT_EQ(Problems::of(soundDiagnosis()), Texts()); }

TEST(Problems, NameTheWindowManagerThatKeepsAKey) {
  EXPECT_EQ(refusedUnder("Openbox").at(0),
            "openbox keeps Ctrl+Alt+← for its desktops: remove it in rc.xml, or bind it to \"tilwin snap "
            "leftHalf\".");
  EXPECT_EQ(refusedUnder("IceWM 3.3.1").at(0),
            "icewm keeps Ctrl+Alt+← for its desktops: remove it in ~/.icewm/preferences, or bind it in "
            "~/.icewm/keys to \"tilwin snap leftHalf\".");
}

TEST(Problems, DoNotBlameAWindowManagerForAKeyThatItDoesNotUse) {
  EXPECT_EQ(
      refusedUnder("Openbox").at(1),
      "openbox (rc.xml) or another program keeps Ctrl+Alt+U: remove it there, bind it there to \"tilwin "
      "snap topLeft\", or choose other keys with \"tilwin set shortcut.topLeft KEYS\".");
  EXPECT_TRUE(refusedUnder("Somebody's").at(0).starts_with("The window manager or another program keeps"));
}

TEST(Problems, OfAnAreaDoNotTellItsName) {
  auto diagnosis = soundDiagnosis();
  diagnosis.shortcuts = {{.keys = ctrlAltU, .area = "Secret", .state = ShortcutFacts::State::refused}};
  const auto problems = Problems::of(diagnosis);
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_NE(problems[0].find("\"tilwin area NAME\""), std::string::npos) << problems[0];
  EXPECT_EQ(problems[0].find("Secret"), std::string::npos) << problems[0];
}

TEST(Problems, BeginWithAProgramThatDoesNotRun) {
  auto diagnosis = soundDiagnosis();
  diagnosis.isRunning = false;
  diagnosis.system.isWayland = true;
  const auto problems = Problems::of(diagnosis);
  ASSERT_EQ(problems.size(), 2U);
  EXPECT_EQ(problems[0], "Tilwin is not running, so no shortcut works: start it with \"tilwin\".");
  EXPECT_TRUE(problems[1].starts_with("This is a Wayland session")) << problems[1];
}

TEST(Problems, DoNotSayThatAProgramThatMayWaitDoesNotRun) {
  auto diagnosis = soundDiagnosis();
  diagnosis.isRunning = false;
  diagnosis.desktop.manager = ManagerFacts();
  EXPECT_EQ(Problems::of(diagnosis).at(0),
            "Tilwin is not running, or waits for a window manager, so no shortcut works.");
  diagnosis.system.commands = SystemFacts::Commands::noFolder;
  EXPECT_EQ(Problems::of(diagnosis).at(0),
            "Tilwin is not running, or cannot be asked: there is no runtime folder.");
}

TEST(Problems, TellOfAMissingWindowManagerAndOfOneThatTilesToo) {
  auto diagnosis = soundDiagnosis();
  diagnosis.desktop.manager = ManagerFacts();
  EXPECT_TRUE(Problems::of(diagnosis).at(0).starts_with("No window manager runs"));
  diagnosis.desktop.manager = {.runs = true, .name = "KWin", .tilesItself = true};
  EXPECT_EQ(
      Problems::of(diagnosis),
      Texts{"kwin tiles windows at the edges itself, so two previews may be shown: turn that off in System "
            "Settings (Screen Edges)."});
}

TEST(Problems, TellWhichFilesAreTooOpen) {
  auto diagnosis = soundDiagnosis();
  diagnosis.files[0].mode = 0666;
  EXPECT_EQ(Problems::of(diagnosis),
            Texts{"Others can change ~/.config/Tilwin/Tilwin.conf (mode 0666): chmod 600 "
                  "~/.config/Tilwin/Tilwin.conf"});
  diagnosis.files[0].mode = 0644;
  diagnosis.files[0].isPrivate = true;
  EXPECT_EQ(Problems::of(diagnosis),
            Texts{"Others can read ~/.config/Tilwin/Tilwin.conf (mode 0644): chmod 600 "
                  "~/.config/Tilwin/Tilwin.conf"});
  diagnosis.files[0].mode = 0600;
  EXPECT_EQ(Problems::of(diagnosis), Texts());
}

TEST(Problems, QuoteAPathForAShellWhereItNeedsThat) {
  auto diagnosis = soundDiagnosis();
  diagnosis.files[0].mode = 0666;
  diagnosis.files[0].path = "/home/somebody/it's mine/Tilwin.conf";
  EXPECT_TRUE(Problems::of(diagnosis).at(0).ends_with("chmod 600 ~/'it'\\''s mine/Tilwin.conf'"))
      << Problems::of(diagnosis).at(0);
}

TEST(Problems, TellOfSettingsThatCannotBeReadAndOfMissingPlaces) {
  auto diagnosis = soundDiagnosis();
  diagnosis.areSettingsUnreadable = true;
  diagnosis.files[0].isReadable = false;
  diagnosis.system.commands = SystemFacts::Commands::noFolder;
  diagnosis.isIconShown = false;
  const auto problems = Problems::of(diagnosis);
  ASSERT_EQ(problems.size(), 4U);
  EXPECT_TRUE(problems[0].starts_with("The settings that are stored cannot be read")) << problems[0];
  EXPECT_TRUE(problems[1].starts_with("There is no runtime folder")) << problems[1];
  EXPECT_TRUE(problems[2].starts_with("You cannot read ~/.config/Tilwin/Tilwin.conf")) << problems[2];
  EXPECT_TRUE(problems[3].starts_with("No panel shows Tilwin's icon")) << problems[3];
}

}  // namespace
}  // namespace tilwin
