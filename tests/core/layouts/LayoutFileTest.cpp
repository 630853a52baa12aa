#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>

#include "core/layouts/LayoutCoding.h"
#include "core/layouts/LayoutStore.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/layouts/Layouts.h"
#include "tests/core/support/ChildProcess.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

const std::string prettyFile = R"({
  "layouts": [
    {
      "id": "0B5E9F6A-33B5-4C5E-9A34-6F5D0E0A1B2C",
      "isAutomatic": false,
      "name": "Désk",
      "signature": {
        "key": "800x600@0,0"
      },
      "slots": [
        {
          "bundleID": "org.example.mail",
          "displayIndex": 1,
          "target": {
            "region": {
              "_0": {
                "col": 1,
                "colSpan": 1,
                "columns": 2,
                "row": 0,
                "rowSpan": 1,
                "rows": 1
              }
            }
          }
        }
      ],
      "updatedAt": "2026-03-01T09:00:05Z"
    }
  ]
})";

LayoutStore oneLayout() {
  return {{{.id = *Uuid::parse("0B5E9F6A-33B5-4C5E-9A34-6F5D0E0A1B2C"),
            .name = "Désk",
            .slots = {slotFor("org.example.mail", GridRegion{2, 1, 1, 0, 1, 1}, 1)},
            .signature = DisplaySignature(displaysAt("800x600+0+0")),
            .updatedAt = at(5)}}};
}

struct LayoutFile : testing::Test {
  TemporaryFolder folder;
  fs::path path = folder.path() / "Tilwin" / "layouts.json";

  void given(std::string_view content) const {
    fs::create_directories(path.parent_path());
    writeText(path, content);
  }
  [[nodiscard]] LayoutStore loaded() const { return LayoutStore::load(path); }
};

TEST_F(LayoutFile, IsWrittenPrettyWithSortedKeysAndMakesItsFolder) {
  oneLayout().write(path);
  EXPECT_EQ(textOf(path), prettyFile);
  EXPECT_THAT(namesIn(path.parent_path()), ElementsAre("layouts.json"));
}

TEST_F(LayoutFile, ReadsBackWhatWasWritten) {
  given(prettyFile);
  EXPECT_EQ(loaded(), oneLayout());
}

TEST_F(LayoutFile, LoadsAsAnEmptyStoreWhenMissingEmptyOrWithoutLayouts) {
  EXPECT_EQ(loaded(), LayoutStore{});
  for (const char* content : {"", " \n", R"({"layouts": []})"}) {
    given(content);
    EXPECT_EQ(loaded(), LayoutStore{}) << content;
  }
}

/// How many layouts a file with this text would give; nothing when it could not be read.
std::optional<std::size_t> layoutsIn(const std::string& text) {
  const auto decoded = decodeJson<LayoutStore>(text);
  const auto* store = std::get_if<LayoutStore>(&decoded);
  return store == nullptr ? std::nullopt : std::optional(store->layouts.size());
}

TEST_F(LayoutFile, CannotBeReadWhenCutOffAnywhere) {
  for (std::size_t length = 0; length < prettyFile.size(); ++length)
    ASSERT_EQ(layoutsIn(prettyFile.substr(0, length)), std::nullopt) << "after " << length << " bytes";
}

TEST_F(LayoutFile, HoldsItsOneLayoutOrCannotBeReadWithAStrayByteAnywhere) {
  for (std::size_t place = 0; place < prettyFile.size(); ++place) {
    for (const char stray : {'\xFF', '\0', '{', '"', '9'}) {
      std::string content = prettyFile;
      content[place] = stray;
      ASSERT_EQ(layoutsIn(content).value_or(1), 1U) << stray << " at " << place;
    }
  }
}

TEST_F(LayoutFile, LoadsAsAnEmptyStoreWhenItIsSomethingElse) {
  const std::string deep(100'000, '[');
  for (const std::string& content :
       {std::string("null"), std::string("[]"), std::string("7"), std::string(R"({"layouts":{}})"),
        std::string(R"({"layouts":[{}]})"), std::string(R"({"layouts":[null]})"),
        std::string(R"({"layouts":[1e999]})"), std::string(R"({"layouts":[NaN]})"),
        std::string("\xEF\xBB\xBF\xFF"), deep, R"({"layouts":)" + deep, deep + std::string(100'000, ']')}) {
    given(content);
    EXPECT_EQ(loaded(), LayoutStore{}) << content.substr(0, 20);
  }
}

TEST_F(LayoutFile, TakesTheLastOfTwoEqualKeys) {
  given(R"({"layouts":[{}],)" + prettyFile.substr(1));
  EXPECT_EQ(loaded(), oneLayout());
}

TEST_F(LayoutFile, OverlooksKeysItDoesNotKnow) {
  given(R"({"version":7,)" + prettyFile.substr(1));
  EXPECT_EQ(loaded(), oneLayout());
}

TEST_F(LayoutFile, IsIntactWhenTheDiskTakesNoMore) {
  given(prettyFile);
  const auto outcome = inChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{64, 64};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    oneLayout().write(path);
  });
  EXPECT_EQ(outcome, ChildOutcome::threw);
  EXPECT_EQ(textOf(path), prettyFile);
}

TEST_F(LayoutFile, IsIntactWhenTheStoreCannotBeWritten) {
  given(prettyFile);
  LayoutStore tooLate = oneLayout();
  tooLate.layouts.front().updatedAt = Date::max();
  EXPECT_THROW(tooLate.write(path), JsonError);
  LayoutStore tooLarge = oneLayout();
  tooLarge.layouts.front().name.assign(LayoutStore::maximumFileSize, 'n');
  EXPECT_THROW(tooLarge.write(path), fs::filesystem_error);
  EXPECT_EQ(textOf(path), prettyFile);
}

TEST_F(LayoutFile, OfTheLargestSizeIsWrittenAndReadBack) {
  LayoutStore store = oneLayout();
  store.write(path);
  store.layouts.front().name.append(LayoutStore::maximumFileSize - fs::file_size(path), 'n');
  store.write(path);
  EXPECT_EQ(loaded(), store);
}

TEST_F(LayoutFile, SaysWhenItsFolderCannotBeMade) {
  writeText(folder.path() / "Tilwin", "a file where the folder should be");
  EXPECT_THROW(oneLayout().write(path), fs::filesystem_error);
  EXPECT_EQ(loaded(), LayoutStore{});
}

TEST_F(LayoutFile, HoldsNamesThatAreNotUnicodeWithTheirBadBytesReplaced) {
  LayoutStore store = oneLayout();
  store.layouts.front().name = "caf\xE9";
  store.write(path);
  EXPECT_EQ(loaded().layouts.front().name, "caf\uFFFD");
}

}  // namespace
}  // namespace tilwin
