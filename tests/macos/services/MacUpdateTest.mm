#include <gtest/gtest.h>

#include <vector>

#include "platform/macos/system/MacUpdateFramework.h"
#include "tests/contract/SystemContract.h"
#include "tests/macos/desktop/Living.h"
#include "tests/macos/gnustep/sparkle/SPUUpdater.h"
#include "tests/macos/services/TestBundle.h"

namespace tilwin::macos {
namespace {

/// A program with the framework in its bundle. What was loaded once stays loaded.
TestBundle& completeProgram() {
  static TestBundle program;
  [[maybe_unused]] static const bool complete = (program.addFramework("Sparkle", SPARKLE), true);
  return program;
}

Class sparkle() { return NSClassFromString(@"SPUStandardUpdaterController"); }

struct MacUpdateTest : testing::Test {
  void TearDown() override { [sparkle() setRefusal:nil]; }

  static SPUStandardUpdaterController* its() { return [sparkle() latest]; }

  AutoreleasePool pool;
  MacUpdateFramework framework{completeProgram().bundle()};
  std::unique_ptr<UpdateController> controller = framework.createController("https://example.org/feed");
};

TEST_F(MacUpdateTest, WithoutTheFrameworkInTheBundleThereIsNoController) {
  const TestBundle bare;
  EXPECT_EQ(MacUpdateFramework(bare.bundle()).createController("https://example.org/feed"), nullptr);
}

TEST_F(MacUpdateTest, AFrameworkThatCannotBeLoadedCountsAsMissing) {
  TestBundle broken;
  broken.addFramework("Sparkle", "/etc/hostname");
  EXPECT_EQ(MacUpdateFramework(broken.bundle()).createController("https://example.org/feed"), nullptr);
}

TEST_F(MacUpdateTest, TheControllerIsMadeWithoutStartingAndWithoutDelegates) {
  ASSERT_NE(controller, nullptr);
  EXPECT_FALSE(its()->startedAtOnce);
  EXPECT_FALSE(its()->hasDelegates);
}

TEST_F(MacUpdateTest, HeadersAreSetBeforeTheStart) {
  controller->setHTTPHeaders({{"X-Tilwin-Channel", "beta"}});
  EXPECT_EQ(controller->start(), std::nullopt);
  EXPECT_EQ(utf8([[[its() updater] httpHeaders] objectForKey:@"X-Tilwin-Channel"]), "beta");
  EXPECT_TRUE([its() updater]->hadHeadersAtStart);
}

TEST_F(MacUpdateTest, AFailureToStartIsDescribed) {
  NSDictionary* const info = [NSDictionary dictionaryWithObject:@"The feed is not secure."
                                                         forKey:NSLocalizedDescriptionKey];
  [sparkle() setRefusal:[NSError errorWithDomain:@"SUSparkleErrorDomain" code:1 userInfo:info]];
  EXPECT_EQ(controller->start(), "The feed is not secure.");
}

TEST_F(MacUpdateTest, FollowsWhetherACheckCanStart) {
  std::vector<bool> told;
  controller->onCanCheckForUpdates([&](bool can) { told.push_back(can); });
  EXPECT_EQ(controller->start(), std::nullopt);
  for (const BOOL can : {NO, YES}) [[its() updater] becomeAbleToCheck:can];
  EXPECT_EQ(told, (std::vector<bool>{false, true, false, true}));
}

TEST_F(MacUpdateTest, NoCheckStartsDuringAnother) {
  EXPECT_EQ(controller->start(), std::nullopt);
  [[its() updater] becomeAbleToCheck:NO];
  controller->checkForUpdates();
  EXPECT_EQ(its()->checks, 0);
}

TEST_F(MacUpdateTest, SaysNothingMoreOnceItIsDestroyedAndOwnsNothing) {
  int told = 0;
  const Living living({"TWKeyObserver"});
  controller->onCanCheckForUpdates([&](bool) { ++told; });
  const auto updater = retained([its() updater]);
  EXPECT_EQ(living.count(), 1);
  const int controllers = [sparkle() living];
  controller.reset();
  EXPECT_EQ(living.count(), 0);
  EXPECT_EQ([sparkle() living], controllers - 1);
  [updater.get() becomeAbleToCheck:YES];
  EXPECT_EQ(told, 1);
}

class MacUpdateWorld : public contract::UpdateWorld {
public:
  UpdateFramework& framework() override { return framework_; }
  [[nodiscard]] std::string feed() const override { return "https://example.org/appcast.xml"; }
  bool waitUntilReady() override { return true; }
  int checks() override { return static_cast<SPUStandardUpdaterController*>([sparkle() latest])->checks; }

private:
  MacUpdateFramework framework_{completeProgram().bundle()};
};

std::unique_ptr<contract::UpdateWorld> makeMacUpdateWorld() { return std::make_unique<MacUpdateWorld>(); }

}  // namespace
}  // namespace tilwin::macos

namespace tilwin::contract {

INSTANTIATE_TEST_SUITE_P(MacOS, UpdateContract, testing::Values(&macos::makeMacUpdateWorld));

}  // namespace tilwin::contract
