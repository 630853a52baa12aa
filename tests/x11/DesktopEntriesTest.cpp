#include "platform/x11/windows/DesktopEntries.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/contract/NamedPipe.h"

namespace tilwin::x11 {

namespace {

/// A data folder of the user's own with two entries, and a German user. Prepared before the first test, as
/// GLib asks the environment but once.
class InstalledApplications : public testing::Test {
protected:
  static void SetUpTestSuite() {
    std::string folder = testing::TempDir() + "tilwin-entries-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    std::filesystem::create_directories(folder_ / "applications");
    std::ofstream(folder_ / "applications" / "org.example.Notes.desktop")
        << "[Desktop Entry]\nType=Application\nName=Notes\nName[de]=Notizen\n";
    std::ofstream(folder_ / "applications" / "browser.desktop")
        << "[Desktop Entry]\nType=Application\nName=The Browser\n";
    std::ofstream(folder_ / "secret.desktop")
        << "[Desktop Entry]\nType=Application\nName=Not an application\n";
    setenv("XDG_DATA_HOME", folder_.c_str(), 1);
    setenv("LANGUAGE", "de", 1);
  }
  static void TearDownTestSuite() { std::filesystem::remove_all(folder_); }

  static std::filesystem::path folder_;
  DesktopEntries entries;
};

std::filesystem::path InstalledApplications::folder_;

}  // namespace

TEST_F(InstalledApplications, AreCalledByTheirNameInTheUsersLanguage) {
  EXPECT_EQ(entries.nameOf("org.example.Notes", "Notes-class"), "Notizen");
}

TEST_F(InstalledApplications, WithoutATranslationAreCalledByTheirPlainName) {
  EXPECT_EQ(entries.nameOf("browser", "Browser"), "The Browser");
}

TEST_F(InstalledApplications, AreFoundByAClassThatIsTheIdWithCapitals) {
  EXPECT_EQ(entries.nameOf("Browser", "Browser"), "The Browser");
}

TEST_F(InstalledApplications, ThatHaveNoEntryAreCalledByTheirClass) {
  EXPECT_EQ(entries.nameOf("xclock-tilwin-test", "XClock"), "XClock");
  EXPECT_EQ(entries.nameOf("", "XClock"), "XClock");
}

TEST_F(InstalledApplications, WhoseEntryIsANamedPipeAreNotWaitedFor) {
  const auto pipe = folder_ / "applications" / "pipe.desktop";
  EXPECT_FALSE(waitsForNamedPipe(pipe, [&] { EXPECT_EQ(entries.nameOf("pipe", "Pipe"), "Pipe"); }));
}

TEST_F(InstalledApplications, CannotPointOutOfTheFolderOfApplications) {
  EXPECT_EQ(entries.nameOf("../secret", "Sly"), "Sly");
}

}  // namespace tilwin::x11
