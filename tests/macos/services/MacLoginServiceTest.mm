#include "platform/macos/system/MacLoginService.h"

#include <array>
#include <utility>

#include "platform/macos/support/Held.h"
#include "tests/contract/SystemContract.h"
#include "tests/macos/gnustep/LoginItems.h"

namespace tilwin::macos {
namespace {

using Status = LoginService::Status;

class MacLoginWorld : public contract::LoginWorld {
public:
  LoginService& service() override { return service_; }
  void refuse() override { loginItems().refusal = "Operation not permitted"; }

private:
  AutoreleasePool pool_;
  MacLoginService service_;
};

std::unique_ptr<contract::LoginWorld> makeMacLoginWorld() {
  loginItems() = {};
  return std::make_unique<MacLoginWorld>();
}

struct MacLoginServiceTest : testing::Test {
  void SetUp() override { loginItems() = {}; }

  AutoreleasePool pool;
  MacLoginService service;
};

TEST_F(MacLoginServiceTest, EachStatusOfTheSystemIsTold) {
  constexpr std::array<std::pair<SMAppServiceStatus, Status>, 5> statuses{{
      {SMAppServiceStatusNotRegistered, Status::notRegistered},
      {SMAppServiceStatusEnabled, Status::enabled},
      {SMAppServiceStatusRequiresApproval, Status::requiresApproval},
      {SMAppServiceStatusNotFound, Status::notFound},
      {SMAppServiceStatus(17), Status::notFound},
  }};
  for (const auto& [given, told] : statuses) {
    loginItems().status = given;
    EXPECT_EQ(service.status(), told);
  }
}

TEST_F(MacLoginServiceTest, RegisteringWhatTheUserHasToApproveIsAnErrorThatTheStatusExplains) {
  loginItems().granted = SMAppServiceStatusRequiresApproval;
  EXPECT_EQ(service.registerProgram(), "Operation not permitted");
  EXPECT_EQ(service.status(), Status::requiresApproval);
  EXPECT_EQ(service.unregisterProgram(), std::nullopt);
  EXPECT_EQ(service.status(), Status::notRegistered);
}

TEST_F(MacLoginServiceTest, UnregisteringWhatTheSystemDoesNotFindIsNoError) {
  loginItems().status = SMAppServiceStatusNotFound;
  EXPECT_EQ(service.unregisterProgram(), std::nullopt);
}

TEST_F(MacLoginServiceTest, ARefusalToUnregisterIsDescribed) {
  EXPECT_EQ(service.registerProgram(), std::nullopt);
  loginItems().refusal = "Not now";
  EXPECT_EQ(service.unregisterProgram(), "Not now");
  EXPECT_EQ(service.status(), Status::enabled);
}

}  // namespace
}  // namespace tilwin::macos

namespace tilwin::contract {

INSTANTIATE_TEST_SUITE_P(MacOS, LoginServiceContract, testing::Values(&macos::makeMacLoginWorld));

}  // namespace tilwin::contract
