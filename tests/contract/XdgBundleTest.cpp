#include "platform/qt/XdgBundle.h"

#include <sys/stat.h>

#include "tests/TemporaryFolder.h"
#include "tests/contract/UserFilesContract.h"
#include "tests/core/EnvironmentVariable.h"

namespace tilwin::contract {
namespace {

namespace fs = std::filesystem;

class XdgBundleWorld : public BundleWorld {
public:
  Bundle& bundle() override { return bundle_; }
  [[nodiscard]] fs::path folder() const override { return home_.path() / "data" / "home"; }

private:
  TemporaryFolder home_;
  EnvironmentVariable data_{"XDG_DATA_HOME", folder().c_str()};
  qt::XdgBundle bundle_;
};

std::unique_ptr<BundleWorld> makeBundleWorld() { return std::make_unique<XdgBundleWorld>(); }

struct XdgBundleTest : testing::Test {
  TemporaryFolder home;
  EnvironmentVariable itsPath{"HOME", home.path().c_str()};
  EnvironmentVariable data{"XDG_DATA_HOME", nullptr};
  qt::XdgBundle bundle;
};

TEST_F(XdgBundleTest, LiesInTheHomeFolderUnlessTheEnvironmentSaysWhere) {
  EXPECT_EQ(bundle.applicationSupport(), home.path() / ".local" / "share");
}

TEST_F(XdgBundleTest, IgnoresAnEnvironmentThatNamesARelativePath) {
  const EnvironmentVariable relative("XDG_DATA_HOME", "data");
  EXPECT_EQ(bundle.applicationSupport(), home.path() / ".local" / "share");
  EXPECT_FALSE(fs::exists("data"));
}

TEST_F(XdgBundleTest, IsMadeForTheUserAlone) {
  const mode_t usual = ::umask(0);
  ASSERT_TRUE(bundle.applicationSupport().has_value());
  ::umask(usual);
  EXPECT_EQ(fs::status(home.path() / ".local" / "share").permissions(), fs::perms::owner_all);
  EXPECT_EQ(fs::status(home.path() / ".local").permissions(), fs::perms::owner_all);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Qt, BundleContract, testing::Values(&makeBundleWorld));

}  // namespace tilwin::contract
