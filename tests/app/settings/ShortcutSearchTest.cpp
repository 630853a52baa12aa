#include <string>
#include <vector>

#include "tests/app/settings/SettingsForm.h"

namespace tilwin {
namespace {

using Titles = std::vector<std::string>;

/// A user who looks for shortcuts.
struct ShortcutSearch : SettingsForm {
  Titles found(const std::string& text) {
    does(form::TextChanged{"search", text});
    return shown();
  }
  [[nodiscard]] Titles shown() const { return rowTitles("shortcuts"); }

  const std::string topLeft = shortcutOf(SnapAction::topLeft);
  const Titles onlyTopLeft{"Top left quarter"};
};

TEST_F(ShortcutSearch, ShortcutsAreFoundByNameAndByKey) {
  open();
  EXPECT_EQ(found("left half"), (Titles{"Left half"}));
  EXPECT_EQ(found("HALF left"), (Titles{"Left half"}));
  EXPECT_EQ(found("⌃⌥u"), onlyTopLeft);
  EXPECT_EQ(found("control+option+shift ="), (Titles{"Make larger"}));
  EXPECT_EQ(found("sixths").size(), 6);
  EXPECT_EQ(found("").size(), 36);
  EXPECT_EQ(found("xyzzy"), Titles{});
  EXPECT_EQ(section("shortcuts").emptyText, "No shortcut matches “xyzzy”.");
}

TEST_F(ShortcutSearch, ARowJustRecordedStaysUntilTheSearchChanges) {
  open();
  ASSERT_EQ(found("⌃⌥u"), onlyTopLeft);
  records(topLeft, {96, 0});
  ASSERT_EQ(shown(), onlyTopLeft);
  EXPECT_EQ(recorderTitle(topLeft), "F5");
  EXPECT_EQ(found("⌃⌥u "), Titles{});
}

TEST_F(ShortcutSearch, ARowJustClearedOrResetStaysUntilTheSearchChanges) {
  open({.shortcuts = {{"topLeft", {96, 0}}}});
  ASSERT_EQ(found("f5"), onlyTopLeft);
  presses(resetOf(SnapAction::topLeft));
  ASSERT_EQ(shown(), onlyTopLeft);
  ASSERT_EQ(found("⌃⌥u"), onlyTopLeft);
  records(topLeft, {51, 0});
  EXPECT_EQ(shown(), onlyTopLeft);
  EXPECT_EQ(found("f5"), Titles{});
}

TEST_F(ShortcutSearch, ARowJustRecordedIsNotFoundAnyMoreInAnotherVisitOfTheSection) {
  open();
  does(form::SectionChosen{"shortcuts"});
  ASSERT_EQ(found("⌃⌥u"), onlyTopLeft);
  records(topLeft, {96, 0});
  does(form::SectionChosen{"behavior"});
  does(form::SectionChosen{"shortcuts"});
  EXPECT_EQ(shown(), Titles{});
}

}  // namespace
}  // namespace tilwin
