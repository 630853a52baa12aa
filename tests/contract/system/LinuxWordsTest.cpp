#include "platform/qt/system/LinuxWords.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "core/settings/KeyNames.h"
#include "core/settings/ShortcutRules.h"

namespace tilwin::contract {
namespace {

struct Said {
  std::string_view written;
  std::string_view onLinux;
};

/// Every text of this program that has a word of macOS in it.
constexpr std::array texts = std::to_array<Said>({
    {"macOS needs your approval: open System Settings, General, Login Items, and allow it.",
     "Your desktop needs your approval: open its list of programs started at login, and allow it."},
    {"macOS did not turn this on. Move the app to the Applications folder and try again.",
     "Your desktop did not turn this on. Check that your autostart folder can be written to, and try again."},
    {"macOS is also snapping windows when you drag them to an edge, so you may see both. Turn off “Drag "
     "windows to screen edges to tile” in Desktop & Dock.",
     "Your desktop is also snapping windows when you drag them to an edge, so you may see both. Turn off "
     "edge "
     "tiling in the settings of your window manager."},
    {"Open Desktop & Dock settings", "Open the settings of your desktop"},
    {"Show the menu bar icon", "Show the panel icon"},
    {"Your own places on the screen, each with a name and, if you like, a shortcut. You can also save the "
     "front "
     "window as an area from the menu bar.",
     "Your own places on the screen, each with a name and, if you like, a shortcut. You can also save the "
     "front "
     "window as an area from the panel."},
    {"Record drag statistics on this Mac", "Record drag statistics on this computer"},
    {"The file stays on this Mac and Tilwin does not send it anywhere.",
     "The file stays on this computer and Tilwin does not send it anywhere."},
    {"Show recorded data in Finder", "Show recorded data in the file manager"},
    {"For example: Safari left two thirds, Notes right third. Tilwin reads the words itself, nothing leaves "
     "your Mac.",
     "For example: Safari left two thirds, Notes right third. Tilwin reads the words itself, nothing leaves "
     "your computer."},
    {"Tilwin drag report (recorded on this Mac, never sent anywhere)",
     "Tilwin drag report (recorded on this computer, never sent anywhere)"},
    {"Hold Control, Option or Command with the key.", "Hold Ctrl, Alt or Super with the key."},
    {"Add Control or Option, so this does not replace a shortcut such as Command-C in every app.",
     "Add Ctrl or Alt, so this does not replace a shortcut such as Super+C in every app."},
});

/// What "uses this for" says of each reserved shortcut.
constexpr std::array<std::string_view, 18> reserved{
    "App search (Super+Space)",
    "Input source (Ctrl+Space)",
    "File search (Super+Alt+Space)",
    "App switcher (Super+Tab)",
    "Switch windows (Super+`)",
    "Quit (Super+Q)",
    "Close window (Super+W)",
    "Hide (Super+H)",
    "Minimize (Super+M)",
    "Force Quit (Super+Alt+Escape)",
    "Lock screen (Ctrl+Super+Q)",
    "Screenshot (Super+Shift+3)",
    "Screenshot (Super+Shift+4)",
    "Screenshot (Super+Shift+5)",
    "Window overview (Ctrl+Up)",
    "Windows of one app (Ctrl+Down)",
    "Workspace to the left (Ctrl+Left)",
    "Workspace to the right (Ctrl+Right)",
};

struct LinuxWordsTest : testing::Test {
  qt::LinuxWords words;
  Wording wording = words.wording();
};

void expectNoWordOfMacOS(const std::string& text) {
  for (const char* const word : {"macOS",
                                 "Mac",
                                 "Finder",
                                 "Dock",
                                 "Command",
                                 "Option",
                                 "Control",
                                 "Spotlight",
                                 "Exposé",
                                 "Mission",
                                 "Space l",
                                 "Space r",
                                 "menu bar",
                                 "System Settings",
                                 "Applications folder",
                                 "⌃",
                                 "⌥",
                                 "⇧",
                                 "⌘",
                                 "←",
                                 "↩",
                                 "⌫",
                                 "⌦",
                                 "⎋",
                                 "⇥"})
    EXPECT_EQ(text.find(word), std::string::npos) << word << " in: " << text;
}

TEST_F(LinuxWordsTest, EveryTextIsSaidInTheWordsOfLinux) {
  for (const auto& [written, onLinux] : texts) {
    EXPECT_EQ(wording.text(written), onLinux);
    expectNoWordOfMacOS(wording.text(written));
  }
}

TEST_F(LinuxWordsTest, EveryReservedShortcutIsSaidInTheWordsOfLinux) {
  ASSERT_EQ(ShortcutRules::reserved().size(), reserved.size());
  for (std::size_t row = 0; row < reserved.size(); ++row) {
    const std::string label(ShortcutRules::reserved()[row].label);
    const std::string message = ShortcutRules::message(ShortcutRules::ReservedBySystem{label}, wording);
    EXPECT_EQ(message, "Your desktop uses this for " + std::string(reserved[row]) + ".");
    expectNoWordOfMacOS(message);
  }
}

TEST_F(LinuxWordsTest, OtherProblemsOfShortcutsAreToo) {
  expectNoWordOfMacOS(ShortcutRules::message(ShortcutRules::NeedsModifier{}, wording));
  expectNoWordOfMacOS(ShortcutRules::message(ShortcutRules::NeedsControlOrOption{}, wording));
  EXPECT_EQ(ShortcutRules::message(ShortcutRules::UsedBy{"Option menu bar"}, wording),
            "Already set for “Option menu bar”.")
      << "the user's own words stay";
}

TEST_F(LinuxWordsTest, TextsWithoutSuchWordsStayAsTheyAre) {
  for (const char* const text :
       {"Click a shortcut, then press the keys you want. Escape cancels, Delete turns it off.",
        "Another app already uses this shortcut, so it does not work. Choose a different one.",
        "Open Tilwin when I log in", "Size and display",
        "Bring the window you want to the front, then try again.",
        "It never records app names, window titles or what is in a window.", "Quit Tilwin"})
    EXPECT_EQ(wording.text(text), text);
}

TEST_F(LinuxWordsTest, EveryKeyHasANameThatIsOnKeyboards) {
  for (const auto& entry : KeyNames::table())
    expectNoWordOfMacOS(KeyNames::describe({entry.keyCode, 0}, wording));
  constexpr std::uint32_t all =
      HotKeySpec::control | HotKeySpec::option | HotKeySpec::shift | HotKeySpec::cmd;
  EXPECT_EQ(KeyNames::describe({123, all}, wording), "Ctrl+Alt+Shift+Super+Left");
  EXPECT_EQ(KeyNames::describe({36, HotKeySpec::control}, wording), "Ctrl+Enter");
  EXPECT_EQ(KeyNames::describe({76, HotKeySpec::control}, wording), "Ctrl+Keypad Enter");
  EXPECT_EQ(KeyNames::describe({51, HotKeySpec::option}, wording), "Alt+Backspace");
  EXPECT_EQ(KeyNames::describe({117, 0}, wording), "Delete");
  EXPECT_EQ(KeyNames::describe({53, 0}, wording), "Esc");
  EXPECT_EQ(KeyNames::describe({48, 0}, wording), "Tab");
}

}  // namespace
}  // namespace tilwin::contract
