#include <gmock/gmock.h>

#include "core/support/AtomicFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

struct FileCopies : testing::Test {
  TemporaryFolder folder;
  fs::path path = folder.path() / "layouts.json";

  [[nodiscard]] std::vector<std::string> names() const { return namesIn(folder.path()); }
};

TEST_F(FileCopies, AreTheThreeNewestTheNewestFirst) {
  for (const char* content : {"first", "second", "third", "fourth", "fifth"}) {
    AtomicFile::replace(path, content);
    AtomicFile::keepCopy(path, "odd");
  }
  AtomicFile::replace(path, "last");
  EXPECT_THAT(names(),
              ElementsAre("layouts.json", "layouts.json.odd", "layouts.json.odd.2", "layouts.json.odd.3"));
  EXPECT_EQ(textOf(folder.path() / "layouts.json.odd"), "fifth");
  EXPECT_EQ(textOf(folder.path() / "layouts.json.odd.2"), "fourth");
  EXPECT_EQ(textOf(folder.path() / "layouts.json.odd.3"), "third");
}

TEST_F(FileCopies, AreNotDroppedWhileANameIsFree) {
  writeText(path, "new");
  writeText(path.string() + ".odd", "one");
  writeText(path.string() + ".odd.3", "three");
  AtomicFile::keepCopy(path, "odd");
  EXPECT_EQ(textOf(path.string() + ".odd"), "new");
  EXPECT_EQ(textOf(path.string() + ".odd.2"), "one");
  EXPECT_EQ(textOf(path.string() + ".odd.3"), "three");
}

TEST_F(FileCopies, AreNotKeptTwiceOfTheSameContent) {
  writeText(path, "odd");
  AtomicFile::keepCopy(path, "odd");
  AtomicFile::keepCopy(path, "odd");
  AtomicFile::replace(path, "odd");
  AtomicFile::keepCopy(path, "odd");
  EXPECT_THAT(names(), ElementsAre("layouts.json", "layouts.json.odd"));
}

TEST_F(FileCopies, CannotBeKeptOfNothingAndThenNoneIsDropped) {
  for (const char* name : {".odd", ".odd.2", ".odd.3"}) writeText(path.string() + name, name);
  EXPECT_THROW(AtomicFile::keepCopy(path, "odd"), fs::filesystem_error);
  EXPECT_EQ(textOf(path.string() + ".odd.3"), ".odd.3");
}

}  // namespace
}  // namespace tilwin
