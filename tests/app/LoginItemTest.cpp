#include "app/login/LoginItem.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "platform/simulated/SimulatedSystem.h"

namespace tilwin {
namespace {

using Status = LoginService::Status;
using Lines = std::vector<std::string>;

struct LoginItemTest : testing::Test {
  SimulatedLoginService service;
  SimulatedLog log;
  LoginItem item{service, log};
};

TEST_F(LoginItemTest, IsTurnedOnAndOff) {
  EXPECT_FALSE(item.isOn());
  EXPECT_TRUE(item.set(true));
  EXPECT_TRUE(item.isOn());
  EXPECT_TRUE(item.set(false));
  EXPECT_FALSE(item.isOn());
  EXPECT_EQ(log.lines(), Lines());
}

TEST_F(LoginItemTest, TurningItOnTwiceIsNoFailure) {
  EXPECT_TRUE(item.set(true));
  EXPECT_TRUE(item.set(true));
  EXPECT_TRUE(item.isOn());
}

TEST_F(LoginItemTest, AFailureIsLoggedInBothDirections) {
  service.refuse("Operation not permitted", Status::requiresApproval);
  EXPECT_FALSE(item.set(true));
  EXPECT_FALSE(item.isOn());
  EXPECT_EQ(item.status(), Status::requiresApproval);
  service.refuse("Service cannot load in requested session", Status::enabled);
  EXPECT_FALSE(item.set(false));
  EXPECT_TRUE(item.isOn());
  EXPECT_EQ(log.lines(), (Lines{"Tilwin login item: Operation not permitted",
                                "Tilwin login item: Service cannot load in requested session"}));
}

TEST_F(LoginItemTest, IsNotOnBeforeTheUserHasApproved) {
  service.demandApproval();
  EXPECT_FALSE(item.set(true));
  EXPECT_EQ(item.status(), Status::requiresApproval);
  EXPECT_EQ(log.lines(), Lines()) << "the request itself did not fail";
}

TEST_F(LoginItemTest, TheUserIsToldToApproveOrElseToMoveTheApp) {
  const std::string approve =
      "macOS needs your approval: open System Settings, General, Login Items, and allow it.";
  const std::string move =
      "macOS did not turn this on. Move the app to the Applications folder and try again.";
  EXPECT_EQ(LoginItem::whyNotEnabled(Status::requiresApproval, {}), approve);
  for (const Status status : {Status::notRegistered, Status::enabled, Status::notFound})
    EXPECT_EQ(LoginItem::whyNotEnabled(status, {}), move);
}

TEST_F(LoginItemTest, TheUserIsToldInTheWordsOfTheDesktop) {
  constexpr std::array words{Wording::Word{"macOS", "Your desktop"}};
  EXPECT_EQ(LoginItem::whyNotEnabled(Status::notFound, {.words = words}),
            "Your desktop did not turn this on. Move the app to the Applications folder and try again.");
}

}  // namespace
}  // namespace tilwin
