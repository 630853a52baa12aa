#include "core/settings/Wording.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "core/settings/KeyNames.h"
#include "core/settings/ShortcutRules.h"

namespace tilwin {
namespace {

constexpr std::array words = std::to_array<Wording::Word>({
    {"macOS", "Your desktop"},
    {"Command-", "Super+"},
    {"Command", "Super"},
    {"Mac", "computer"},
    {"App Exposé", "Windows of the app"},
});
constexpr std::array keys = std::to_array<Wording::Word>({{"⌃", "Ctrl+"}, {"⌘", "Super+"}, {"←", "Left"}});
constexpr Wording wording{.words = words, .keys = keys};

TEST(Wording, WithoutWordsSaysTextsAsTheyAreWritten) {
  EXPECT_EQ(Wording().text("macOS uses this for Quit (Command-Q)."), "macOS uses this for Quit (Command-Q).");
  EXPECT_EQ(Wording().key("⌘"), "⌘");
  EXPECT_EQ(Wording().text(""), "");
}

TEST(Wording, ReplacesEachWordWhereverItStands) {
  EXPECT_EQ(wording.text("macOS"), "Your desktop");
  EXPECT_EQ(wording.text("On this Mac, or that Mac."), "On this computer, or that computer.");
  EXPECT_EQ(wording.text("“Mac”"), "“computer”");
}

TEST(Wording, LeavesPartsOfLongerWordsAlone) {
  EXPECT_EQ(wording.text("Macintosh, BigMac, Commander"), "Macintosh, BigMac, Commander");
}

TEST(Wording, IsEqualToOneThatSaysTheSame) {
  const std::vector<Wording::Word> copies(words.begin(), words.end());
  EXPECT_EQ(wording, (Wording{.words = copies, .keys = keys}));
  EXPECT_NE(wording, (Wording{.words = words}));
  EXPECT_NE(wording, Wording());
}

TEST(Wording, TheFirstWordThatFitsWins) {
  EXPECT_EQ(wording.text("Command-C or Command"), "Super+C or Super");
}

TEST(Wording, AReplacementIsNotReplacedAgain) {
  constexpr std::array swapped = std::to_array<Wording::Word>({{"left", "right"}, {"right", "left"}});
  EXPECT_EQ(Wording{.words = swapped}.text("left and right"), "right and left");
}

TEST(Wording, KeepsTextBeyondASCIIWhole) {
  EXPECT_EQ(wording.text("App Exposé – “Écran” ⌘"), "Windows of the app – “Écran” ⌘");
}

TEST(Wording, NamesKeysBySymbolAndOthersAsTheyAre) {
  EXPECT_EQ(wording.key("⌘"), "Super+");
  EXPECT_EQ(wording.key("⇧"), "⇧");
  EXPECT_EQ(KeyNames::describe({123, HotKeySpec::control | HotKeySpec::cmd}, wording), "Ctrl+Super+Left");
}

TEST(Wording, SaysProblemsOfShortcutsButNeverChangesTheNameOfAnArea) {
  using Rules = ShortcutRules;
  EXPECT_EQ(Rules::message(Rules::ReservedBySystem{"Quit (Command-Q)"}, wording),
            "Your desktop uses this for Quit (Super+Q).");
  EXPECT_EQ(Rules::message(Rules::UsedBy{"My Mac Command"}, wording), "Already set for “My Mac Command”.");
}

}  // namespace
}  // namespace tilwin
