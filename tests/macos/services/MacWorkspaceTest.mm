#include "platform/macos/windows/MacWorkspace.h"

#include <gtest/gtest.h>

#include "tests/macos/gnustep/ProgramsElsewhere.h"
#include "tests/macos/services/TestBundle.h"

namespace tilwin::macos {
namespace {

struct MacWorkspaceTest : testing::Test {
  MacWorkspaceTest() { programsElsewhere() = {}; }

  AutoreleasePool pool;
  TestBundle own{"<key>CFBundleIdentifier</key><string>org.example.Tilwin</string>"};
  MacWorkspace workspace{own.bundle()};
};

TEST_F(MacWorkspaceTest, AProgramIsDescribedWithWhatItHas) {
  programsElsewhere().running = {
      {.processID = 501, .bundleIdentifier = "org.example.Editor", .localizedName = "Editör"},
      {.processID = 502, .policy = NSApplicationActivationPolicyAccessory},
      {.processID = 503, .policy = NSApplicationActivationPolicyProhibited}};
  const std::vector<RunningApplication> expected{{.processID = 501,
                                                  .bundleIdentifier = "org.example.Editor",
                                                  .localizedName = "Editör",
                                                  .isRegular = true},
                                                 {.processID = 502, .isRegular = false},
                                                 {.processID = 503, .isRegular = false}};
  EXPECT_EQ(workspace.runningApplications(), expected);
}

TEST_F(MacWorkspaceTest, TheFrontmostProgramIsTold) {
  programsElsewhere().frontmost = {
      .processID = 7, .bundleIdentifier = "org.example.Editor", .localizedName = "Editor"};
  EXPECT_EQ(workspace.frontmostApplication(),
            (RunningApplication{
                .processID = 7, .bundleIdentifier = "org.example.Editor", .localizedName = "Editor"}));
}

TEST_F(MacWorkspaceTest, WhereNoProgramIsFrontmostThereIsNone) {
  EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
  EXPECT_EQ(workspace.runningApplications(), std::vector<RunningApplication>());
}

TEST_F(MacWorkspaceTest, TheOwnIdentifierIsThatOfTheBundle) {
  EXPECT_EQ(workspace.ownBundleIdentifier(), "org.example.Tilwin");
  const TestBundle nameless;
  EXPECT_EQ(MacWorkspace(nameless.bundle()).ownBundleIdentifier(), std::nullopt);
}

}  // namespace
}  // namespace tilwin::macos
