#include "platform/macos/system/MacFileViewer.h"

#include <gtest/gtest.h>

#include "platform/macos/support/Held.h"
#include "platform/simulated/SimulatedSystem.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/FileText.h"
#include "tests/macos/gnustep/ShownElsewhere.h"

namespace tilwin::macos {
namespace {

using Lines = std::vector<std::string>;

struct MacFileViewerTest : testing::Test {
  MacFileViewerTest() { shownElsewhere() = {}; }

  AutoreleasePool pool;
  TemporaryFolder folder;
  SimulatedLog log;
  MacFileViewer viewer{log};
};

TEST_F(MacFileViewerTest, AnAddressOfAnyKindGoesToTheWorkspace) {
  const Lines addresses{"https://example.org/new?a=b#c",
                        "x-apple.systempreferences:com.apple.Desktop-Settings.extension"};
  for (const auto& each : addresses) viewer.openURL(each);
  EXPECT_EQ(shownElsewhere().opened, addresses);
  EXPECT_EQ(log.lines(), Lines());
}

TEST_F(MacFileViewerTest, WhatIsNoAddressIsLoggedAndNotOpened) {
  for (const std::string each : {"", "not an address", "/etc/hosts", "-a"}) {
    viewer.openURL(each);
    EXPECT_EQ(log.lines().back(), "Tilwin: not an address: " + each);
  }
  EXPECT_EQ(shownElsewhere().opened, Lines());
}

TEST_F(MacFileViewerTest, AnAddressThatNobodyOpensIsLogged) {
  shownElsewhere().canOpen = false;
  viewer.openURL("unknown:thing");
  EXPECT_EQ(log.lines(), Lines{"Tilwin: there is no program to open unknown:thing"});
}

TEST_F(MacFileViewerTest, AFileIsSelectedInItsFolder) {
  const auto file = folder.path() / "a b%ü.json";
  writeText(file, "");
  viewer.reveal(file);
  EXPECT_EQ(shownElsewhere().selected, Lines{"file://" + folder.path().string() + "/a%20b%25%C3%BC.json"});
  EXPECT_EQ(shownElsewhere().opened, Lines());
}

TEST_F(MacFileViewerTest, TheNearestFolderIsOpenedForAFileThatIsMissing) {
  viewer.reveal(folder.path() / "missing" / "shadow.jsonl");
  EXPECT_EQ(shownElsewhere().selected, Lines());
  ASSERT_EQ(shownElsewhere().opened.size(), 1U);
  EXPECT_TRUE(shownElsewhere().opened.back().starts_with("file://" + folder.path().string()));
  EXPECT_EQ(shownElsewhere().opened.back().find("missing"), std::string::npos);
}

}  // namespace
}  // namespace tilwin::macos
