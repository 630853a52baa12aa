#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <chrono>

#include "app/settings/SettingsStore.h"
#include "core/settings/SettingsCoding.h"
#include "platform/simulated/SimulatedSystem.h"
#include "tests/core/JsonText.h"
#include "tests/core/SettingsFields.h"

namespace tilwin {
namespace {

using Blobs = SimulatedUserDefaults::Blobs;

/// Stored settings that somebody or something has damaged.
struct UnreadableSettings : testing::Test {
  void store(std::string_view blob) { disk.store(SettingsStore::key, blob); }
  static Blobs after(const std::string& settings) { return {{std::string(SettingsStore::key), settings}}; }
  static Blobs after(const std::string& settings, const std::string& kept) {
    Blobs blobs = after(settings);
    blobs.emplace(SettingsStore::unreadableKey, kept);
    return blobs;
  }

  SimulatedUserDefaults disk;
  const std::string gapOf4 = written(TilwinSettings{.gap = 4});
  const std::string gapOf5 = written(TilwinSettings{.gap = 5});
};

TEST_F(UnreadableSettings, CountAsNone) {
  for (const char* blob : {"", "not json", "[]", "null", "\"{}\"", "{\"gap\":8", "\xff\xfe", "{} {}"}) {
    store(blob);
    EXPECT_EQ(SettingsStore(disk).settings.get(), TilwinSettings()) << blob;
  }
}

TEST_F(UnreadableSettings, CutOffAtAnyByteAreUnreadableAndStayAsTheyAre) {
  for (std::size_t length = 0; length < gapOf4.size(); ++length) {
    store(gapOf4.substr(0, length));
    EXPECT_EQ(SettingsStore(disk).settings.get(), TilwinSettings()) << length;
    EXPECT_EQ(disk.blobs(), after(gapOf4.substr(0, length)));
  }
  store(gapOf4);
  EXPECT_EQ(SettingsStore(disk).settings.get().gap, 4);
}

TEST_F(UnreadableSettings, AreKeptBeforeTheFirstWriteOverThem) {
  store("{\"gap\":8");
  SettingsStore settings(disk);
  settings.settings.set({.gap = 4});
  EXPECT_EQ(disk.blobs(), after(gapOf4, "{\"gap\":8"));
  settings.settings.set({.gap = 5});
  EXPECT_EQ(disk.blobs(), after(gapOf5, "{\"gap\":8"));
  EXPECT_EQ(disk.writeCount(), 3);
}

TEST_F(UnreadableSettings, KeptOnceAreNotReplacedByReadableOnes) {
  store("{\"gap\":8");
  SettingsStore(disk).settings.set({.gap = 4});
  SettingsStore(disk).settings.set({.gap = 5});
  EXPECT_EQ(disk.blobs(), after(gapOf5, "{\"gap\":8"));
}

TEST_F(UnreadableSettings, ThatCannotBeKeptAreNotWrittenOver) {
  store("{\"gap\":8");
  SettingsStore settings(disk);
  disk.setRefusing(true);
  settings.settings.set({.gap = 4});
  EXPECT_EQ(disk.blobs(), after("{\"gap\":8"));
  disk.setRefusing(false);
  settings.settings.set({.gap = 5});
  EXPECT_EQ(disk.blobs(), after(gapOf5, "{\"gap\":8"));
}

TEST_F(UnreadableSettings, ReadableOnesWithBrokenFieldsAreNotAmongThem) {
  store(R"({"gap":"wide"})");
  SettingsStore(disk).settings.set({.gap = 4});
  EXPECT_EQ(disk.blobs(), after(gapOf4));
}

TEST_F(UnreadableSettings, AreThoseLargerThanSettingsEverAre) {
  const std::string largest = R"({"gap":4})" + std::string(SettingsStore::largestBlob - 9, ' ');
  store(largest);
  EXPECT_EQ(SettingsStore(disk).settings.get().gap, 4);
  store(largest + " ");
  SettingsStore settings(disk);
  EXPECT_EQ(settings.settings.get(), TilwinSettings());
  settings.settings.set({.gap = 4});
  EXPECT_EQ(disk.blobs(), after(gapOf4, largest + " "));
}

TEST_F(UnreadableSettings, TheLargestOfTheWorstKindAreReadInGoodTime) {
  struct Worst {
    std::string start;
    std::string repeated;
    std::string end;
  };
  const std::vector<Worst> worst{{R"({"customAreas":[0)", ",0", "]}"},
                                 {R"({"gap":[0)", ",1e999", "]}"},
                                 {R"({"disabled":["")", ",\"\"", "]}"},
                                 {R"({"shortcuts":{"":0)", ",\"a\":0", "}}"},
                                 {"", "[", ""},
                                 {"", "{\"a\":", ""}};
  for (const auto& [start, repeated, end] : worst) {
    std::string blob = start;
    while (blob.size() + repeated.size() + end.size() <= SettingsStore::largestBlob) blob += repeated;
    store(blob + end);
    const auto began = std::chrono::steady_clock::now();
    EXPECT_TRUE(SettingsStore(disk).settings.get().customAreas.empty());
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(20)) << start;
  }
}

/// Values of every kind that JSON has; some are good for some fields.
std::string anyValue() {
  constexpr std::array values{
      "null",          "true",   "false", "0",       "-7",
      "1e999",         "3.25",   "\"\"",  "\"x\"",   "[]",
      "[1]",           "[null]", "{}",    "[\"a\"]", R"({"a":{"keyCode":1,"modifiers":2}})",
      R"({"a":null})", "[{}]"};
  return values[static_cast<std::size_t>(arbitrary::whole(0, static_cast<int>(values.size()) - 1))];
}

RC_GTEST_PROP(UnreadableSettingsProperties, NoMixtureOfGoodAndBrokenFieldsLosesAGoodOne, ()) {
  TilwinSettings good = arbitrary::settings();
  good.clamp();
  const SettingsField broken = *rc::gen::elementOf(settingsFields);
  // The last of two equal keys counts.
  std::string text = written(good);
  text.pop_back();
  text += ",\"" + broken.key + "\":" + anyValue() + "}";
  SimulatedUserDefaults disk;
  disk.store(SettingsStore::key, text);
  TilwinSettings loaded = SettingsStore(disk).settings.get();
  broken.copy(good, loaded);
  RC_ASSERT(loaded == good);
}

RC_GTEST_PROP(UnreadableSettingsProperties, NoBytesHarmTheStart, (const std::string& blob)) {
  SimulatedUserDefaults disk;
  disk.store(SettingsStore::key, blob);
  SettingsStore store(disk);
  store.settings.set(store.settings.get());
}

}  // namespace
}  // namespace tilwin
