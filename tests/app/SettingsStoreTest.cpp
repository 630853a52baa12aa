#include "app/settings/SettingsStore.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

#include "core/settings/SettingsCoding.h"
#include "platform/simulated/SimulatedSystem.h"
#include "tests/core/JsonText.h"
#include "tests/core/SettingsFields.h"

namespace tilwin {
namespace {

struct SettingsStoreTest : testing::Test {
  TilwinSettings loaded(std::string_view blob) {
    disk.store(SettingsStore::key, blob);
    return SettingsStore(disk).settings.get();
  }
  std::string stored() const {
    const auto found = disk.blobs().find(SettingsStore::key);
    return found == disk.blobs().end() ? "" : found->second;
  }

  SimulatedUserDefaults disk;
};

TEST_F(SettingsStoreTest, StartsWithTheDefaultsWhenNothingIsStored) {
  const SettingsStore store(disk);
  EXPECT_EQ(store.settings.get(), TilwinSettings());
  EXPECT_TRUE(store.unavailable.get().empty());
}

TEST_F(SettingsStoreTest, StartsWithWhatIsStoredBroughtIntoRange) {
  EXPECT_EQ(loaded(R"({"gap":100})").gap, 64);
  EXPECT_EQ(loaded(R"({"gap":-3})").gap, 0);
  EXPECT_EQ(loaded(R"({"gap":"wide","outer":8})").outer, 8);
  const auto area = loaded(R"({"customAreas":[{"id":"01234567-89AB-CDEF-FEDC-BA9876543210","name":"",)"
                           R"("rect":{"x":0.9,"y":0,"width":0.5,"height":0.01}}]})");
  ASSERT_EQ(area.customAreas.size(), 1);
  EXPECT_EQ(area.customAreas[0].rect, (NormalizedRect{0.5, 0, 0.5, 0.05}));
}

TEST_F(SettingsStoreTest, WritesNothingAtStart) {
  for (const char* blob : {"{}", R"({"gap":100})", "not json", ""}) {
    loaded(blob);
    EXPECT_EQ(stored(), blob);
  }
  EXPECT_EQ(disk.writeCount(), 0);
}

TEST_F(SettingsStoreTest, EveryAssignmentIsStoredAtOnceAsCompactJson) {
  SettingsStore store(disk);
  store.settings.set({.gap = 4});
  EXPECT_EQ(stored(), written(TilwinSettings{.gap = 4}));
  store.settings.set({.gap = 5});
  store.settings.set({.gap = 5});
  EXPECT_EQ(stored(), written(TilwinSettings{.gap = 5}));
  EXPECT_EQ(disk.writeCount(), 3);
}

TEST_F(SettingsStoreTest, WhatWasAssignedIsThereAtTheNextStart) {
  TilwinSettings settings = everySettingChosen();
  EXPECT_EQ(settings.assign({97, 0}, SnapAction::centerLarge), std::nullopt);
  SettingsStore(disk).settings.set(settings);
  EXPECT_EQ(SettingsStore(disk).settings.get(), settings);
}

TEST_F(SettingsStoreTest, RangesReachTheDiskAtOnceAndMemoryAtTheNextStart) {
  SettingsStore store(disk);
  store.settings.set({.gap = 100, .outer = std::numeric_limits<double>::quiet_NaN()});
  EXPECT_EQ(store.settings.get().gap, 100);
  EXPECT_EQ(stored(), written(TilwinSettings{.gap = 64}));
  EXPECT_EQ(SettingsStore(disk).settings.get(), TilwinSettings{.gap = 64});
}

TEST_F(SettingsStoreTest, ReceiversAreToldWhileTheOldSettingsStillStand) {
  SettingsStore store(disk);
  std::vector<std::string> told;
  const auto subscription = store.settings.subscribe([&](const TilwinSettings& next) {
    told.push_back(written(store.settings.get().gap) + "->" + written(next.gap) + " over " + stored());
  });
  store.settings.set({.gap = 4});
  EXPECT_EQ(told, std::vector<std::string>{"0->4 over "});
}

TEST_F(SettingsStoreTest, AnAssignmentByAReceiverLeavesMemoryAndDiskAgreeing) {
  SettingsStore store(disk);
  const auto subscription = store.settings.subscribe([&](const TilwinSettings& next) {
    if (next.gap == 4) store.settings.set({.gap = 40});
  });
  store.settings.set({.gap = 4});
  EXPECT_EQ(stored(), written(store.settings.get()));
}

TEST_F(SettingsStoreTest, UnavailableShortcutsAreToldOfButNeverStored) {
  SettingsStore store(disk);
  std::size_t coming = 0;
  const auto subscription = store.unavailable.subscribe([&](const auto& next) { coming = next.size(); });
  store.unavailable.set({SnapAction::leftHalf, CustomArea::starter("Notes").id});
  EXPECT_EQ(coming, 2);
  EXPECT_EQ(disk.writeCount(), 0);
}

TEST_F(SettingsStoreTest, OnADiskThatRefusesTheSettingsHoldForThisRun) {
  SettingsStore store(disk);
  disk.setRefusing(true);
  store.settings.set({.gap = 4});
  EXPECT_EQ(store.settings.get().gap, 4);
  EXPECT_EQ(stored(), "");
}

TEST_F(SettingsStoreTest, TextThatIsNotUtf8DoesNotStopItFromStoring) {
  SettingsStore store(disk);
  TilwinSettings settings{.gap = 4};
  settings.ignoredApps = {"org.example.\xff"};
  store.settings.set(settings);
  EXPECT_EQ(SettingsStore(disk).settings.get().ignoredApps,
            std::vector<std::string>{"org.example.\xef\xbf\xbd"});
}

TEST_F(SettingsStoreTest, WhatItCouldNotReadAgainItDoesNotWrite) {
  SettingsStore store(disk);
  store.settings.set({.gap = 4});
  TilwinSettings huge;
  huge.ignoredApps = {std::string(SettingsStore::largestBlob, 'a')};
  store.settings.set(huge);
  EXPECT_EQ(stored(), written(TilwinSettings{.gap = 4}));
}

TEST_F(SettingsStoreTest, OnesThatAreTooLargeAreLoggedOnceUntilTheyFitAgain) {
  SimulatedLog log;
  SettingsStore store(disk, &log);
  TilwinSettings huge;
  huge.ignoredApps = {std::string(SettingsStore::largestBlob, 'a')};
  store.settings.set(huge);
  store.settings.set(huge);
  EXPECT_EQ(log.lines(), std::vector<std::string>{"Tilwin: settings of more than 256 KiB are not saved"});
  store.settings.set({.gap = 4});
  EXPECT_EQ(stored(), written(TilwinSettings{.gap = 4}));
  EXPECT_EQ(log.lines().size(), 1);
  store.settings.set(huge);
  EXPECT_EQ(log.lines().size(), 2);
}

TEST_F(SettingsStoreTest, TheMostThatTheProgramAddsFits) {
  const auto controls = [](std::size_t bytes) {
    return std::string(bytes, '\x01');
  };  // six bytes each in JSON
  TilwinSettings settings{.gap = 1.0 / 3, .outer = 1.0 / 3};
  for (const SnapAction action : SnapActions::all()) {
    const std::string name(SnapActions::rawValue(action));
    settings.shortcuts[name] = {4'000'000'000, 4'000'000'000};
    settings.disabled.insert(name);
  }
  for (std::size_t count = 0; count < TilwinSettings::maximumIgnored; ++count)
    settings.ignoredApps.push_back(controls(TilwinSettings::longestIgnored));
  for (std::size_t count = 0; count < TilwinSettings::maximumAreas; ++count) {
    settings.customAreas.push_back(CustomArea::starter(controls(100'000)));
    settings.customAreas.back().rect = {1.0 / 3, 1.0 / 7, 1.0 / 3, 1.0 / 7};
    settings.customAreas.back().shortcut = HotKeySpec{4'000'000'000, 4'000'000'000};
  }
  SettingsStore(disk).settings.set(settings);
  EXPECT_EQ(SettingsStore(disk).settings.get(), settings);
}

RC_GTEST_PROP(SettingsStoreProperties, WhateverIsAssignedIsThereInRangeAtTheNextStart, ()) {
  SimulatedUserDefaults disk;
  TilwinSettings settings = arbitrary::settings();
  SettingsStore(disk).settings.set(settings);
  settings.clamp();
  RC_ASSERT(SettingsStore(disk).settings.get() == settings);
}

}  // namespace
}  // namespace tilwin
