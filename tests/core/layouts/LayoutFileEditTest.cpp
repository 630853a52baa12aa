// Somebody edits the layouts file while it is being written.

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include <algorithm>

#include "core/layouts/LayoutsFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/layouts/Layouts.h"
#include "tests/core/support/FileText.h"
#include "tests/core/support/TracedProcess.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

const std::string anEdit = R"({"layouts": [], "by": "hand"})";

struct LayoutFileEdit : testing::Test {
  TemporaryFolder folder;
  fs::path path = folder.path() / "layouts.json";
  LayoutsFile file{path};

  LayoutFileEdit() {
    file.write({{layoutOf({})}});
    static_cast<void>(file.load());
  }

  void editInPlace(const std::string& text) const { writeText(path, text); }
  void editByRename(const std::string& text) const {
    writeText(folder.path() / "editor.tmp", text);
    fs::rename(folder.path() / "editor.tmp", path);
  }

  [[nodiscard]] bool isKept(const std::string& text) const {
    const auto names = namesIn(folder.path());
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& name) { return textOf(folder.path() / name) == text; });
  }

  /// Writes twice in a process that stops that often before the edit; false if it ended earlier.
  [[nodiscard]] bool isEditedAt(int stop, const std::function<void()>& edit) {
    TracedProcess process([this] {
      file.write({{layoutOf({})}});
      file.write({{layoutOf({}), layoutOf({})}});
    });
    for (int count = 0; count < stop; ++count) {
      if (!process.goOn()) return false;
    }
    edit();
    while (process.goOn()) continue;
    return true;
  }

  /// The number of moments at which such an edit is lost, of how many.
  std::pair<int, int> lossesOf(const std::function<void()>& edit) {
    int lost = 0;
    for (int stop = 0;; ++stop) {
      for (const auto& name : namesIn(folder.path())) fs::remove(folder.path() / name);
      file.write({{layoutOf({})}});
      if (!isEditedAt(stop, edit)) return {lost, stop};
      if (!isKept(anEdit)) ++lost;
    }
  }
};

TEST_F(LayoutFileEdit, IsLostAtNoMomentButBetweenTheLastLookAndTheRename) {
  for (const auto& edit :
       {std::function([this] { editInPlace(anEdit); }), {[this] { editByRename(anEdit); }}}) {
    const auto [lost, moments] = lossesOf(edit);
    EXPECT_GT(moments, 50);
    // Twice the end of one call and the begin of the next, and whatever a sanitizer does in between.
    EXPECT_LE(10 * lost, moments) << lost;
  }
}

TEST_F(LayoutFileEdit, ThatIsFollowedByAnotherAgainAndAgainIsLeftInPlace) {
  int edits = 0;
  {
    TracedProcess process([this] { file.write({{layoutOf({}), layoutOf({})}}); });
    while (process.goOnTo(SYS_fsync)) editByRename("edit " + std::to_string(++edits));
  }
  EXPECT_EQ(edits, 10);
  EXPECT_EQ(textOf(path), "edit 10");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("layouts.json", "layouts.json.unreadable",
                                                  "layouts.json.unreadable.2", "layouts.json.unreadable.3"));
  file.write({});
  EXPECT_EQ(LayoutStore::load(path), LayoutStore{}) << "the next write works again";
  EXPECT_EQ(textOf(path.string() + ".unreadable"), "edit 10");
}

}  // namespace
}  // namespace tilwin
