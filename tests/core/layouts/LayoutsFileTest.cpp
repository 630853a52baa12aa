#include "core/layouts/LayoutsFile.h"

#include <gmock/gmock.h>

#include "tests/TemporaryFolder.h"
#include "tests/core/layouts/Layouts.h"
#include "tests/core/support/ChildProcess.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

struct LayoutsFileTest : testing::Test {
  TemporaryFolder folder;
  fs::path path = folder.path() / "Tilwin" / "layouts.json";
  fs::path unreadable = folder.path() / "Tilwin" / "layouts.json.unreadable";
  fs::path edited = folder.path() / "Tilwin" / "layouts.json.edited";
  LayoutsFile file{path};
  std::string readable = R"({"layouts": []})";

  void given(std::string_view content) const {
    fs::create_directories(path.parent_path());
    writeText(path, content);
  }
  [[nodiscard]] LayoutStore loaded() const { return LayoutStore::load(path); }
};

LayoutStore oneLayoutMore() { return {{layoutOf({})}}; }

TEST_F(LayoutsFileTest, IsNotEvenReadWhenItIsFarTooLarge) {
  given(readable);
  fs::resize_file(path, 100'000'000);
  EXPECT_EQ(file.load(), LayoutStore{});
  file.write(oneLayoutMore());
  EXPECT_EQ(fs::file_size(unreadable), 100'000'000U);
}

TEST_F(LayoutsFileTest, IsKeptBesideItsReplacementWhenItCouldNotBeRead) {
  const std::string broken = readable.substr(0, readable.size() - 1);
  given(broken);
  LayoutStore store = file.load();
  store.save(layoutOf({}));
  file.write(store);
  EXPECT_EQ(loaded(), store);
  EXPECT_EQ(textOf(unreadable), broken);
}

TEST_F(LayoutsFileTest, IsKeptWhenItCouldNotBeReadForAWhile) {
  given(readable);
  fs::rename(path, folder.path() / "away");
  EXPECT_EQ(file.load(), LayoutStore{});
  fs::rename(folder.path() / "away", path);
  file.write({});
  EXPECT_EQ(textOf(edited), readable);
}

TEST_F(LayoutsFileTest, IsKeptWhenSomebodyHasEditedItSinceItWasRead) {
  given(readable);
  const LayoutStore store = file.load();
  given("edited by hand, badly");
  file.write(store);
  EXPECT_EQ(textOf(unreadable), "edited by hand, badly");
  given(R"({"layouts": []})");
  file.write(store);
  EXPECT_EQ(textOf(edited), R"({"layouts": []})");
  EXPECT_THAT(namesIn(path.parent_path()),
              ElementsAre("layouts.json", "layouts.json.edited", "layouts.json.unreadable"));
}

TEST_F(LayoutsFileTest, IsKeptNoMoreThanThreeTimes) {
  LayoutStore store = file.load();
  for (int edit = 1; edit <= 5; ++edit) {
    given(R"({"layouts": [], "edit": )" + std::to_string(edit) + "}");
    file.write(store);
  }
  EXPECT_THAT(namesIn(path.parent_path()), ElementsAre("layouts.json", "layouts.json.edited",
                                                       "layouts.json.edited.2", "layouts.json.edited.3"));
  EXPECT_EQ(textOf(edited), R"({"layouts": [], "edit": 5})");
}

TEST_F(LayoutsFileTest, IsKeptWhenNobodyHasReadIt) {
  given(readable);
  file.write({});
  EXPECT_EQ(textOf(edited), readable);
}

TEST_F(LayoutsFileTest, NeedsNoCopyOfWhatWasReadOrWrittenBefore) {
  given(readable);
  file.write(file.load());
  file.write(oneLayoutMore());
  file.write({});
  EXPECT_THAT(namesIn(path.parent_path()), ElementsAre("layouts.json"));
}

TEST_F(LayoutsFileTest, NeedsNoCopyOfAnEmptyFileOrNone) {
  file.write(oneLayoutMore());
  fs::remove(path);
  file.write(oneLayoutMore());
  given("");
  file.write(oneLayoutMore());
  EXPECT_THAT(namesIn(path.parent_path()), ElementsAre("layouts.json"));
}

TEST_F(LayoutsFileTest, IsLeftAloneWhenItsCopyCannotBeKept) {
  given("broken");
  fs::permissions(path.parent_path(), fs::perms(0555));
  const auto outcome = inChild([&] {
    if (::geteuid() == 0 && ::setuid(65534) != 0) return;
    file.write(oneLayoutMore());
  });
  fs::permissions(path.parent_path(), fs::perms(0755));
  EXPECT_EQ(outcome, ChildOutcome::threw);
  EXPECT_EQ(textOf(path), "broken");
}

}  // namespace
}  // namespace tilwin
