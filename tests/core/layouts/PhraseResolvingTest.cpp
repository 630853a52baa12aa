#include "core/layouts/PhraseParser.h"
#include "tests/core/support/Texts.h"

namespace tilwin {
namespace {

using Apps = std::vector<PhraseParser::AppCandidate>;

Apps named(const Texts& names) {
  Apps apps;
  for (const std::string& name : names) apps.push_back({"org.example." + std::to_string(apps.size()), name});
  return apps;
}

/// The name of the application found, or nothing.
std::string found(std::string_view query, const Texts& names) {
  const auto app = PhraseParser::resolve(query, named(names));
  return app ? app->name : "";
}

PhraseParser::Slots slots(const std::vector<PhraseParser::Clause>& clauses, const Texts& names) {
  return PhraseParser::slots({clauses, {}}, named(names));
}

TEST(PhraseResolving, AnEqualNameWinsOverOneThatBeginsSo) {
  EXPECT_EQ(found("mail", {"Mailplane", "Mail"}), "Mail");
}

TEST(PhraseResolving, TwoThatBeginSoAreAmbiguous) { EXPECT_EQ(found("mai", {"Mail", "Mailplane"}), ""); }

TEST(PhraseResolving, AWordThatBeginsSoWinsOverTheInsideOfAnother) {
  EXPECT_EQ(found("pad", {"Notepad", "Sketch Pad"}), "Sketch Pad");
}

TEST(PhraseResolving, TheInsideOfANameIsFoundLast) {
  EXPECT_EQ(found("epa", {"Notepad", "Mail"}), "Notepad");
  EXPECT_EQ(found("pad", {"Notepad", "Wordpad"}), "") << "both contain it";
}

TEST(PhraseResolving, AnAmbiguousTestEndsTheSearch) {
  EXPECT_EQ(found("mail", {"Mail", "MAIL", "Mailplane"}), "") << "two equal names, though one begins so";
  EXPECT_EQ(found("no", {"Notes", "Notepad", "Big Nova"}), "") << "two begin so, though one word does";
  EXPECT_EQ(found("pad", {"Big Pad", "Sketch Pad", "Notepad"}), "") << "two words do, though one inside";
}

TEST(PhraseResolving, ThatABeginningIsAlsoAWordDoesNotCountTwice) {
  EXPECT_EQ(found("note", {"Notes", "Big Notes"}), "Notes");
  EXPECT_EQ(found("pad", {"Pad Pad"}), "Pad Pad");
}

TEST(PhraseResolving, SeveralWordsCanBeginOrLieInsideAName) {
  EXPECT_EQ(found("visual st", {"Visual Studio", "Visual Editor"}), "Visual Studio");
  EXPECT_EQ(found("studio co", {"Visual Studio Code", "Code"}), "Visual Studio Code");
  EXPECT_EQ(found("ch pad", {"Sketch Pad", "Notepad"}), "Sketch Pad");
}

TEST(PhraseResolving, IgnoresCaseAndSpaceAroundTheQuery) {
  EXPECT_EQ(found(" \tMAIL\u00A0", {"Mail"}), "Mail");
  EXPECT_EQ(found("éditeur", {"ÉDITEUR"}), "ÉDITEUR");
  EXPECT_EQ(found("cafe", {"Café"}), "") << "accents count";
}

TEST(PhraseResolving, ComposedAndDecomposedAreTheSameName) {
  EXPECT_EQ(found("caf\u00E9", {"Cafe\u0301"}), "Cafe\u0301");
  EXPECT_EQ(found("cafe\u0301", {"My Caf\u00E9s"}), "My Caf\u00E9s");
}

TEST(PhraseResolving, AnEmptyQueryMeansNothing) {
  EXPECT_EQ(PhraseParser::resolve("", named({"Mail"})), std::nullopt);
  EXPECT_EQ(PhraseParser::resolve(" \t\u3000", named({"Mail"})), std::nullopt);
  EXPECT_EQ(PhraseParser::resolve("", named({""})), std::nullopt);
}

TEST(PhraseResolving, WithoutCandidatesNothingIsFound) {
  EXPECT_EQ(PhraseParser::resolve("mail", {}), std::nullopt);
}

TEST(PhraseResolving, BundleIdentifiersAreNotConsulted) {
  const Apps apps{{"org.example.mail", "Post"}, {"post", "Notes"}};
  EXPECT_EQ(PhraseParser::resolve("mail", apps), std::nullopt);
  EXPECT_EQ(PhraseParser::resolve("post", apps), apps[0]);
}

TEST(PhraseSlots, HoldTheApplicationTheFirstDisplayAndTheRegion) {
  const auto [made, unresolved] = slots({{"mail", SnapAction::leftTwoThirds}}, {"Notes", "Mail"});
  ASSERT_EQ(made.size(), 1);
  EXPECT_EQ(made[0].bundleID, "org.example.1");
  EXPECT_EQ(made[0].appName, "Mail");
  EXPECT_EQ(made[0].titleContains, std::nullopt);
  EXPECT_EQ(made[0].displayIndex, 0);
  EXPECT_EQ(made[0].target, SlotTarget(GridRegion(3, 1, 0, 0, 2, 1)));
  EXPECT_TRUE(unresolved.empty());
}

TEST(PhraseSlots, CentreIsASharePlaceAndMaximizeARegion) {
  const auto made =
      slots({{"mail", SnapAction::center}, {"notes", SnapAction::maximize}}, {"Mail", "Notes"}).slots;
  ASSERT_EQ(made.size(), 2);
  EXPECT_EQ(made[0].target, SlotTarget(NormalizedRect{0.175, 0.1, 0.65, 0.8}));
  EXPECT_EQ(made[1].target, SlotTarget(GridRegion(1, 1, 0, 0, 1, 1)));
}

TEST(PhraseSlots, EveryActionWithoutARegionGetsTheFallbackAndEveryOtherItsRegion) {
  std::size_t fallbacks = 0;
  for (const SnapAction action : SnapActions::all()) {
    const auto made = slots({{"mail", action}}, {"Mail"}).slots;
    ASSERT_EQ(made.size(), 1) << action;
    if (action <= SnapAction::maximize) {
      EXPECT_EQ(made[0].target, SlotTarget(SnapActions::region(action).value())) << action;
    } else {
      ++fallbacks;
      EXPECT_EQ(made[0].target, SlotTarget(NormalizedRect{0.175, 0.1, 0.65, 0.8})) << action;
    }
  }
  EXPECT_EQ(fallbacks, 10);
}

TEST(PhraseSlots, ReportQueriesThatMeanNoneOrSeveralInTheirOrder) {
  const std::vector<PhraseParser::Clause> clauses{{"music", SnapAction::leftHalf},
                                                  {"notes", SnapAction::rightHalf},
                                                  {"mai", SnapAction::topHalf},
                                                  {"music", SnapAction::center}};
  const auto [made, unresolved] = slots(clauses, {"Mail", "Mailplane", "Notes"});
  ASSERT_EQ(made.size(), 1);
  EXPECT_EQ(made[0].appName, "Notes");
  EXPECT_EQ(unresolved, (Texts{"music", "mai", "music"}));
}

TEST(PhraseSlots, OneApplicationCanHaveSeveral) {
  const auto made = slots({{"mail", SnapAction::leftHalf}, {"mail", SnapAction::rightHalf}}, {"Mail"}).slots;
  ASSERT_EQ(made.size(), 2);
  EXPECT_EQ(made[0].bundleID, made[1].bundleID);
  EXPECT_NE(made[0].target, made[1].target);
}

}  // namespace
}  // namespace tilwin
