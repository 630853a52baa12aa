#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

#include "tests/core/SettingsFields.h"

namespace tilwin {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

double clampedGap(double gap) {
  TilwinSettings settings{.gap = gap};
  settings.clamp();
  return settings.gap;
}

double clampedOuter(double outer) {
  TilwinSettings settings{.outer = outer};
  settings.clamp();
  return settings.outer;
}

TEST(SettingsClamp, DistancesAreFromNothingTo64Points) {
  struct Case {
    double given;
    double clamped;
  };
  for (const auto& [given, clamped] : {Case{100, 64},
                                       {-3, 0},
                                       {0, 0},
                                       {64, 64},
                                       {63.5, 63.5},
                                       {infinity, 64},
                                       {-infinity, 0},
                                       {notANumber, 0}}) {
    EXPECT_EQ(clampedGap(given), clamped) << given;
    EXPECT_EQ(clampedOuter(given), clamped) << given;
  }
}

TEST(SettingsClamp, OnlyTheFirstTwelveAreasAreKept) {
  TilwinSettings settings;
  for (int number = 1; number <= 13; ++number) {
    settings.customAreas.push_back(CustomArea::starter(std::to_string(number)));
  }
  const auto given = settings.customAreas;
  settings.clamp();
  EXPECT_EQ(settings.customAreas, std::vector<CustomArea>(given.begin(), given.begin() + 12));
}

TEST(SettingsClamp, NoAreasStayNoAreas) {
  TilwinSettings settings;
  settings.clamp();
  EXPECT_EQ(settings, TilwinSettings());
}

TEST(SettingsClamp, AnAreaIsPushedOntoTheScreen) {
  EXPECT_EQ(CustomArea::clamped({0.9, 0, 0.5, 1}), (NormalizedRect{0.5, 0, 0.5, 1}));
  EXPECT_EQ(CustomArea::clamped({0, 0.9, 1, 0.5}), (NormalizedRect{0, 0.5, 1, 0.5}));
  EXPECT_EQ(CustomArea::clamped({-0.3, -2, 0.5, 0.25}), (NormalizedRect{0, 0, 0.5, 0.25}));
  EXPECT_EQ(CustomArea::clamped({infinity, infinity, 0.5, 0.25}), (NormalizedRect{0.5, 0.75, 0.5, 0.25}));
}

TEST(SettingsClamp, AnAreaTakesFromATwentiethToAllOfTheScreen) {
  EXPECT_EQ(CustomArea::clamped({0, 0, 0.01, -1}), (NormalizedRect{0, 0, 0.05, 0.05}));
  EXPECT_EQ(CustomArea::clamped({0.4, 0.4, 3, infinity}), (NormalizedRect{0, 0, 1, 1}));
}

TEST(SettingsClamp, WhatIsNotANumberBecomesTheSmallestValue) {
  EXPECT_EQ(CustomArea::clamped({notANumber, notANumber, notANumber, notANumber}),
            (NormalizedRect{0, 0, 0.05, 0.05}));
}

TEST(SettingsClamp, AnAreasNameIsCutAtThreeHundredBytesAndNotInsideACharacter) {
  EXPECT_EQ(CustomArea::keptName("Reading column"), "Reading column");
  EXPECT_EQ(CustomArea::keptName(std::string(301, 'n')), std::string(300, 'n'));
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("")};
  settings.customAreas[0].name = std::string(299, 'n') + "é";
  settings.clamp();
  EXPECT_EQ(settings.customAreas[0].name, std::string(299, 'n'));
  EXPECT_EQ(CustomArea::starter(std::string(400, 'n')).name, std::string(300, 'n'));
}

TEST(SettingsClamp, AnAreaThatFitsIsLeftAsItIs) {
  EXPECT_EQ(CustomArea::clamped({0.2, 0, 0.6, 1}), (NormalizedRect{0.2, 0, 0.6, 1}));
}

TEST(SettingsClamp, LeavesWhatIsInRangeAlone) {
  TilwinSettings settings = everySettingChosen();
  settings.clamp();
  EXPECT_EQ(settings, everySettingChosen());
}

TEST(SettingsClamp, LeavesEverythingElseAlone) {
  TilwinSettings settings{.cycleWidths = false, .shadowRecording = true};
  settings.shortcuts["no such action"] = {4000000000, 7};
  settings.disabled = {"nor this"};
  settings.ignoredApps = {"", "", "org.example.Editor"};
  const TilwinSettings before = settings;
  settings.clamp();
  EXPECT_EQ(settings, before);
}

RC_GTEST_PROP(SettingsClampProperties, WhateverIsGivenEndsInRangeAndClampingAgainChangesNothing, ()) {
  TilwinSettings settings = arbitrary::settings();
  settings.clamp();
  for (const double distance : {settings.gap, settings.outer}) {
    RC_ASSERT(distance >= 0 && distance <= 64);
  }
  RC_ASSERT(settings.customAreas.size() <= 12);
  for (const CustomArea& area : settings.customAreas) {
    const NormalizedRect& rect = area.rect;
    RC_ASSERT(rect.width >= 0.05 && rect.height >= 0.05 && rect.x >= 0 && rect.y >= 0);
    RC_ASSERT(rect.x + rect.width <= 1 && rect.y + rect.height <= 1);
  }
  TilwinSettings again = settings;
  again.clamp();
  RC_ASSERT(again == settings);
}

}  // namespace
}  // namespace tilwin
