#include "app/updates/UpdaterService.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/simulated/SimulatedSystem.h"
#include "platform/simulated/SimulatedUpdates.h"

namespace tilwin {
namespace {

constexpr const char* feed = "https://example.org/appcast.xml";

/// A program that was built with this information dictionary.
struct UpdaterServiceTest : testing::Test {
  UpdaterService& start(const Bundle::Information& built) {
    bundle.built = built;
    service = std::make_unique<UpdaterService>(bundle, framework, log);
    return *service;
  }

  SimulatedBundle bundle{std::nullopt};
  SimulatedUpdates framework;
  SimulatedLog log;
  std::unique_ptr<UpdaterService> service;
};

TEST_F(UpdaterServiceTest, ThereIsNoUpdaterWithoutAFeed) {
  const std::vector<Bundle::Information> without{{},
                                                 {{"SUFeedURL", std::string()}},
                                                 {{"SUFeedURL", true}},
                                                 {{"SUFeedURL", std::int64_t{7}}},
                                                 {{"TWUpdateChannelToken", std::string("beta")}},
                                                 {{"sufeedurl", std::string(feed)}}};
  for (const auto& built : without) {
    auto& updater = start(built);
    EXPECT_FALSE(updater.hasStarted());
    EXPECT_FALSE(updater.canCheckForUpdates.get());
    updater.checkForUpdates();
    EXPECT_EQ(framework.state(), nullptr);
  }
  EXPECT_EQ(log.lines(), std::vector<std::string>());
}

TEST_F(UpdaterServiceTest, ThereIsNoUpdaterWhereTheFrameworkIsMissing) {
  framework.isMissing = true;
  auto& updater = start({{"SUFeedURL", std::string(feed)}});
  EXPECT_FALSE(updater.hasStarted());
  EXPECT_FALSE(updater.canCheckForUpdates.get());
  updater.checkForUpdates();
  EXPECT_EQ(log.lines(), std::vector<std::string>());
}

TEST_F(UpdaterServiceTest, AFeedStartsTheUpdaterOnce) {
  EXPECT_TRUE(start({{"SUFeedURL", std::string(feed)}}).hasStarted());
  EXPECT_EQ(framework.state()->feed, feed);
  EXPECT_EQ(framework.state()->starts, 1);
  EXPECT_EQ(framework.state()->checks, 0) << "only the user starts a check";
  EXPECT_EQ(log.lines(), std::vector<std::string>());
}

TEST_F(UpdaterServiceTest, TheTokenIsSetAsAHeaderBeforeTheUpdaterStarts) {
  start({{"SUFeedURL", std::string(feed)}, {"TWUpdateChannelToken", std::string("beta")}});
  EXPECT_EQ(framework.state()->headers, (UpdateController::Headers{{"X-Tilwin-Channel", "beta"}}));
  EXPECT_TRUE(framework.state()->headersSetBeforeStart);
}

TEST_F(UpdaterServiceTest, ATokenThatIsEmptyOrNoTextSetsNoHeader) {
  const std::vector<Bundle::InformationValue> tokens{std::string(), true, std::int64_t{7}};
  for (const auto& token : tokens) {
    start({{"SUFeedURL", std::string(feed)}, {"TWUpdateChannelToken", token}});
    EXPECT_EQ(framework.state()->headers, UpdateController::Headers());
  }
  start({{"SUFeedURL", std::string(feed)}});
  EXPECT_EQ(framework.state()->headers, UpdateController::Headers());
}

TEST_F(UpdaterServiceTest, AFailureToStartIsLoggedAndChecksMayBecomePossibleLater) {
  framework.failToStart("the feed address is not valid");
  auto& updater = start({{"SUFeedURL", std::string(feed)}});
  EXPECT_EQ(log.lines(),
            std::vector<std::string>{"Tilwin updater failed to start: the feed address is not valid"});
  EXPECT_FALSE(updater.hasStarted());
  EXPECT_FALSE(updater.canCheckForUpdates.get());
  framework.setCanCheck(true);
  EXPECT_TRUE(updater.canCheckForUpdates.get());
  updater.checkForUpdates();
  EXPECT_EQ(framework.state()->checks, 1);
}

TEST_F(UpdaterServiceTest, WhetherACheckCanStartFollowsTheFramework) {
  auto& updater = start({{"SUFeedURL", std::string(feed)}});
  EXPECT_FALSE(updater.canCheckForUpdates.get()) << "until the framework says so";
  std::vector<bool> told;
  const auto subscription = updater.canCheckForUpdates.subscribe([&](bool can) { told.push_back(can); });
  framework.setCanCheck(true);
  EXPECT_TRUE(updater.canCheckForUpdates.get());
  framework.setCanCheck(false);
  EXPECT_FALSE(updater.canCheckForUpdates.get());
  EXPECT_EQ(told, (std::vector<bool>{true, false}));
}

TEST_F(UpdaterServiceTest, TheUsersCheckReachesTheFramework) {
  auto& updater = start({{"SUFeedURL", std::string(feed)}});
  framework.setCanCheck(true);
  updater.checkForUpdates();
  updater.checkForUpdates();
  EXPECT_EQ(framework.state()->checks, 2);
}

}  // namespace
}  // namespace tilwin
