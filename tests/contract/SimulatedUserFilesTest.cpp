#include "platform/simulated/SimulatedSystem.h"

#include "tests/TemporaryFolder.h"
#include "tests/contract/UserFilesContract.h"

namespace tilwin::contract {
namespace {

class SimulatedUserDefaultsWorld : public UserDefaultsWorld {
public:
  UserDefaults& defaults() override { return defaults_; }
  void restart() override {}
  void setDiskFull(bool full) override { defaults_.setRefusing(full); }

private:
  SimulatedUserDefaults defaults_;
};

std::unique_ptr<UserDefaultsWorld> makeWorld() { return std::make_unique<SimulatedUserDefaultsWorld>(); }

TEST(SimulatedUserDefaults, CountsTheProgramsWritesAlone) {
  SimulatedUserDefaults disk;
  UserDefaults& defaults = disk;
  disk.store("key", "by hand");
  defaults.setData("key", "first");
  disk.setRefusing(true);
  defaults.setData("key", "second");
  EXPECT_EQ(disk.writeCount(), 2);
  EXPECT_EQ(disk.blobs(), (SimulatedUserDefaults::Blobs{{"key", "first"}}));
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Simulated, UserDefaultsContract, testing::Values(&makeWorld));

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
