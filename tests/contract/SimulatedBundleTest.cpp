#include "platform/simulated/SimulatedSystem.h"

#include "tests/TemporaryFolder.h"
#include "tests/contract/BundleContract.h"

namespace tilwin::contract {
namespace {

class SimulatedBundleWorld : public BundleWorld {
public:
  Bundle& bundle() override { return bundle_; }
  [[nodiscard]] std::filesystem::path folder() const override { return home_.path() / "library" / "support"; }

private:
  TemporaryFolder home_;
  SimulatedBundle bundle_{folder()};
};

std::unique_ptr<BundleWorld> makeBundleWorld() { return std::make_unique<SimulatedBundleWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Simulated, BundleContract, testing::Values(&makeBundleWorld));

}  // namespace tilwin::contract
