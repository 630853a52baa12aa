#include "core/layouts/LayoutStore.h"

#include <gmock/gmock.h>

#include <map>

#include "tests/core/EnvironmentVariable.h"
#include "tests/core/layouts/Layouts.h"

namespace tilwin {
namespace {

using testing::ElementsAre;

Layout layoutNamed(std::string name) {
  Layout layout = layoutOf({});
  layout.name = std::move(name);
  return layout;
}

/// The program's own layout of a set with one display of this width.
Layout automaticFor(int width, int second, std::vector<LayoutSlot> slots = {}) {
  Layout layout = layoutOf(std::move(slots));
  layout.name = "Automatic";
  layout.isAutomatic = true;
  layout.signature = DisplaySignature(displaysAt(std::to_string(width) + "x600+0+0"));
  layout.updatedAt = at(second);
  return layout;
}

std::vector<std::string> namesOf(const std::vector<Layout>& layouts) {
  std::vector<std::string> names(layouts.size());
  std::transform(layouts.begin(), layouts.end(), names.begin(), [](const Layout& each) { return each.name; });
  return names;
}

/// The seconds at which the automatic layouts left were captured.
std::vector<Date> automaticDates(const LayoutStore& store) {
  std::vector<Date> dates;
  for (const Layout& layout : store.layouts) {
    if (layout.isAutomatic) dates.push_back(layout.updatedAt);
  }
  return dates;
}

TEST(LayoutStore, ListsTheUsersLayoutsByNameWhateverTheirCase) {
  const LayoutStore store{
      {layoutNamed("gamma"), automaticFor(800, 1), layoutNamed("Beta"), layoutNamed("alpha")}};
  EXPECT_THAT(namesOf(store.userLayouts()), ElementsAre("alpha", "Beta", "gamma"));
}

TEST(LayoutStore, ListsTheUsersLayoutsAsTheirLocaleSorts) {
  const EnvironmentVariable all("LC_ALL", nullptr);
  const EnvironmentVariable messages("LC_MESSAGES", "de_DE.UTF-8");
  const EnvironmentVariable language("LANG", "de_DE.UTF-8");
  const LayoutStore store{{layoutNamed("Zimmer"), layoutNamed("Äpfel"), layoutNamed("Buch")}};
  for (const auto& [collation, names] : std::map<const char*, std::vector<std::string>>{
           {"sv_SE.UTF-8", {"Buch", "Zimmer", "Äpfel"}}, {"de_DE.UTF-8", {"Äpfel", "Buch", "Zimmer"}}}) {
    const EnvironmentVariable sorting("LC_COLLATE", collation);
    EXPECT_EQ(namesOf(store.userLayouts()), names) << collation;
  }
}

TEST(LayoutStore, ListsLayoutsOfTheSameNameAsTheyWereAdded) {
  const LayoutStore store{{layoutNamed("Desk"), layoutNamed("desk"), layoutNamed("Desk")}};
  EXPECT_EQ(store.userLayouts(), store.layouts);
}

TEST(LayoutStore, SavesAChangedLayoutWhereItStood) {
  LayoutStore store{{layoutNamed("a"), layoutNamed("b"), layoutNamed("c")}};
  Layout changed = store.layouts.at(1);
  changed.name = "B";
  changed.slots = {slotFor("mail")};
  store.save(changed);
  EXPECT_THAT(namesOf(store.layouts), ElementsAre("a", "B", "c"));
  EXPECT_EQ(store.layouts.at(1), changed);
}

TEST(LayoutStore, AddsANewLayoutAtTheEndEvenUnderANameThatIsThere) {
  LayoutStore store{{layoutNamed("Desk"), layoutNamed("Other")}};
  const Layout added = layoutNamed("Desk");
  store.save(added);
  EXPECT_THAT(namesOf(store.layouts), ElementsAre("Desk", "Other", "Desk"));
  EXPECT_EQ(store.layouts.back(), added);
}

TEST(LayoutStore, RemovesEveryLayoutOfAnId) {
  LayoutStore store{{layoutNamed("a"), layoutNamed("b")}};
  store.layouts.push_back(store.layouts.front());
  store.remove(Uuid(store.layouts.front().id));
  EXPECT_THAT(namesOf(store.layouts), ElementsAre("b"));
}

TEST(LayoutStore, RenamesOnlyTheFirstLayoutOfAnId) {
  LayoutStore store{{layoutNamed("a"), layoutNamed("b")}};
  store.layouts.push_back(store.layouts.front());
  store.rename(store.layouts.front().id, "new");
  EXPECT_THAT(namesOf(store.layouts), ElementsAre("new", "b", "a"));
  store.rename(Uuid::random(), "nobody");
  EXPECT_THAT(namesOf(store.layouts), ElementsAre("new", "b", "a"));
}

TEST(LayoutStore, FindsTheFirstAutomaticLayoutOfADisplaySet) {
  Layout ofUser = automaticFor(800, 1);
  ofUser.isAutomatic = false;
  const LayoutStore store{{ofUser, automaticFor(1024, 2), automaticFor(800, 3), automaticFor(800, 4)}};
  EXPECT_EQ(store.automatic(*ofUser.signature), store.layouts.at(2));
  EXPECT_EQ(store.automatic(DisplaySignature()), std::nullopt);
}

TEST(LayoutStore, NeverTakesALayoutWithoutSignatureForAnEmptyDisplaySet) {
  Layout layout = automaticFor(800, 1);
  layout.signature.reset();
  EXPECT_EQ(LayoutStore{{layout}}.automatic(DisplaySignature()), std::nullopt);
}

TEST(LayoutStore, KeepsIdAndPlaceOfTheAutomaticLayoutThatANewOneReplaces) {
  LayoutStore store{{automaticFor(800, 1), layoutNamed("mine")}};
  const Uuid id = store.layouts.front().id;
  Layout renewed = automaticFor(800, 2, {slotFor("mail")});
  renewed.name = "Newer";
  store.setAutomatic(renewed);
  EXPECT_THAT(namesOf(store.layouts), ElementsAre("Newer", "mine"));
  EXPECT_EQ(store.layouts.front().id, id);
  EXPECT_EQ(store.layouts.front().slots, renewed.slots);
  EXPECT_EQ(store.layouts.front().updatedAt, at(2));
}

TEST(LayoutStore, MarksWhatItKeepsForDisplaysAsAutomatic) {
  LayoutStore store;
  Layout layout = automaticFor(800, 1);
  layout.isAutomatic = false;
  store.setAutomatic(layout);
  EXPECT_TRUE(store.layouts.at(0).isAutomatic);
}

TEST(LayoutStore, DoesNotKeepAnAutomaticLayoutWithoutSignature) {
  LayoutStore store;
  Layout layout = automaticFor(800, 1);
  layout.signature.reset();
  store.setAutomatic(layout);
  EXPECT_TRUE(store.layouts.empty());
}

TEST(LayoutStore, DropsTheOldestOfSevenAutomaticLayouts) {
  LayoutStore store;
  for (const int second : {3, 1, 4, 2, 5, 6, 7}) store.setAutomatic(automaticFor(800 + second, second));
  EXPECT_THAT(automaticDates(store), ElementsAre(at(3), at(4), at(2), at(5), at(6), at(7)));
}

TEST(LayoutStore, DropsANewAutomaticLayoutThatIsOlderThanSixOthers) {
  LayoutStore store;
  for (const int second : {3, 4, 5, 6, 7, 8, 1}) store.setAutomatic(automaticFor(800 + second, second));
  EXPECT_EQ(store.automatic(*automaticFor(801, 1).signature), std::nullopt);
}

TEST(LayoutStore, DropsTheLaterOfEquallyOldAutomaticLayouts) {
  LayoutStore store;
  for (int width = 801; width <= 807; ++width) store.setAutomatic(automaticFor(width, 1));
  EXPECT_TRUE(store.automatic(*automaticFor(801, 1).signature).has_value());
  EXPECT_FALSE(store.automatic(*automaticFor(807, 1).signature).has_value());
}

TEST(LayoutStore, NeverDropsTheUsersLayouts) {
  LayoutStore store;
  for (int count = 0; count < 20; ++count) store.save(layoutNamed("mine"));
  for (int second = 1; second <= 9; ++second) store.setAutomatic(automaticFor(800 + second, second));
  EXPECT_EQ(store.userLayouts().size(), 20U);
  EXPECT_EQ(automaticDates(store).size(), 6U);
}

TEST(LayoutStore, DropsOldAutomaticLayoutsOnlyEvenWhereALayoutOfTheUserHasTheirId) {
  LayoutStore store;
  for (int second = 1; second <= 6; ++second) store.setAutomatic(automaticFor(800 + second, second));
  Layout mine = layoutNamed("mine");
  mine.id = store.layouts.front().id;
  store.layouts.push_back(mine);
  store.setAutomatic(automaticFor(900, 7));
  EXPECT_THAT(namesOf(store.userLayouts()), ElementsAre("mine"));
}

}  // namespace
}  // namespace tilwin
