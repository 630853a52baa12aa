#include "platform/simulated/SimulatedSystem.h"
#include "platform/simulated/SimulatedUpdates.h"
#include "tests/contract/SystemContract.h"

namespace tilwin::contract {
namespace {

class SimulatedLoginWorld : public LoginWorld {
public:
  LoginService& service() override { return service_; }
  void refuse() override { service_.refuse("not allowed"); }

private:
  SimulatedLoginService service_;
};

std::unique_ptr<LoginWorld> makeLoginWorld() { return std::make_unique<SimulatedLoginWorld>(); }

class SimulatedUpdateWorld : public UpdateWorld {
public:
  UpdateFramework& framework() override { return framework_; }
  [[nodiscard]] std::string feed() const override { return "https://example.org/appcast.xml"; }
  bool waitUntilReady() override {
    framework_.setCanCheck(true);
    return true;
  }
  int checks() override { return framework_.state()->checks; }

private:
  SimulatedUpdates framework_;
};

std::unique_ptr<UpdateWorld> makeUpdateWorld() { return std::make_unique<SimulatedUpdateWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Simulated, LoginServiceContract, testing::Values(&makeLoginWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, UpdateContract, testing::Values(&makeUpdateWorld));

}  // namespace tilwin::contract
