// The layouts of a user without a folder for them lie in the temporary one, which is open to all users.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>

#include "app/AppDelegate.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/EnvironmentVariable.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

struct LayoutsInASharedFolder : testing::Test {
  TemporaryFolder shared;
  EnvironmentVariable variable{"TMPDIR", shared.path().c_str()};
  fs::path folder = shared.path() / "Tilwin";
  SimulatedDesktop desktop;
  Platform platform = desktop.platform();

  /// Until the windows have been captured.
  void run() {
    desktop.windows.open({.frame = {0, 0, 500, 400}});
    AppDelegate program(platform);
    program.start();
    desktop.time.advance(20s);
  }
  bool isFailureLogged() {
    return std::ranges::any_of(desktop.log.lines(), [](const std::string& line) {
      return line.starts_with("Tilwin: layouts could not be saved: ");
    });
  }
};

TEST_F(LayoutsInASharedFolder, LieInAFolderForTheUserAlone) {
  fs::create_directory(folder);
  fs::permissions(folder, fs::perms::all);
  run();
  EXPECT_TRUE(fs::is_regular_file(folder / "layouts.json"));
  EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
}

TEST_F(LayoutsInASharedFolder, AreNotWrittenThroughALinkThatLiesThere) {
  const fs::path letter = shared.path() / "letter";
  writeText(letter, "Dear all");
  fs::create_directory(folder);
  fs::create_symlink(letter, folder / "layouts.json");
  run();
  EXPECT_EQ(textOf(letter), "Dear all");
  EXPECT_TRUE(isFailureLogged());
}

TEST_F(LayoutsInASharedFolder, AreNotKeptInTheFolderOfAnotherUser) {
  fs::create_directory(folder);
  fs::permissions(folder, fs::perms::all);
  if (::chown(folder.c_str(), 65534, 65534) != 0) return;
  run();
  EXPECT_TRUE(fs::is_empty(folder));
  EXPECT_TRUE(isFailureLogged());
}

}  // namespace
}  // namespace tilwin
