#include "tests/contract/SystemContract.h"

#include <optional>
#include <vector>

namespace tilwin::contract {

using Status = LoginService::Status;

TEST_P(LoginServiceContract, AProgramIsNotRegisteredAtFirst) {
  EXPECT_EQ(world->service().status(), Status::notRegistered);
}

TEST_P(LoginServiceContract, RegisteringEnablesAndUnregisteringUndoesIt) {
  EXPECT_EQ(world->service().registerProgram(), std::nullopt);
  EXPECT_EQ(world->service().status(), Status::enabled);
  EXPECT_EQ(world->service().unregisterProgram(), std::nullopt);
  EXPECT_EQ(world->service().status(), Status::notRegistered);
}

TEST_P(LoginServiceContract, AskingAgainIsNoError) {
  EXPECT_EQ(world->service().unregisterProgram(), std::nullopt);
  for (int time = 0; time < 2; ++time) EXPECT_EQ(world->service().registerProgram(), std::nullopt);
  EXPECT_EQ(world->service().status(), Status::enabled);
  for (int time = 0; time < 2; ++time) EXPECT_EQ(world->service().unregisterProgram(), std::nullopt);
  EXPECT_EQ(world->service().status(), Status::notRegistered);
}

TEST_P(LoginServiceContract, ARefusalIsDescribedAndEnablesNothing) {
  world->refuse();
  const auto error = world->service().registerProgram();
  ASSERT_TRUE(error.has_value());
  EXPECT_NE(*error, "");
  EXPECT_NE(world->service().status(), Status::enabled);
}

TEST_P(UpdateContract, NoCheckCanStartBeforeTheUpdater) {
  const auto controller = world->framework().createController(world->feed());
  ASSERT_NE(controller, nullptr);
  std::vector<bool> told;
  controller->onCanCheckForUpdates([&](bool can) { told.push_back(can); });
  EXPECT_EQ(told, std::vector<bool>{false}) << "the present value at once";
  controller->checkForUpdates();
  EXPECT_EQ(world->checks(), 0);
}

TEST_P(UpdateContract, AStartedUpdaterTellsWhenACheckCanStart) {
  const auto controller = world->framework().createController(world->feed());
  std::optional<bool> last;
  controller->onCanCheckForUpdates([&](bool can) { last = can; });
  EXPECT_EQ(controller->start(), std::nullopt);
  ASSERT_TRUE(world->waitUntilReady());
  EXPECT_EQ(last, true);
  EXPECT_EQ(world->checks(), 0) << "none that nobody asked for";
  controller->checkForUpdates();
  EXPECT_EQ(world->checks(), 1);
}

TEST_P(UpdateContract, ALaterHandlerIsToldThePresentValue) {
  const auto controller = world->framework().createController(world->feed());
  EXPECT_EQ(controller->start(), std::nullopt);
  ASSERT_TRUE(world->waitUntilReady());
  std::optional<bool> last;
  controller->onCanCheckForUpdates([&](bool can) { last = can; });
  EXPECT_EQ(last, true);
}

}  // namespace tilwin::contract
