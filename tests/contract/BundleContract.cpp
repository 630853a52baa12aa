#include "tests/contract/BundleContract.h"

#include <fstream>

namespace tilwin::contract {

namespace fs = std::filesystem;

TEST_P(BundleContract, ApplicationSupportIsMadeWhereItIsMissing) {
  EXPECT_EQ(world->bundle().applicationSupport(), world->folder());
  EXPECT_TRUE(fs::is_directory(world->folder()));
}

TEST_P(BundleContract, ApplicationSupportThatIsThereStaysAsItIs) {
  fs::create_directories(world->folder() / "Others");
  fs::permissions(world->folder(), fs::perms::owner_all | fs::perms::group_read);
  EXPECT_EQ(world->bundle().applicationSupport(), world->folder());
  EXPECT_TRUE(fs::is_directory(world->folder() / "Others"));
  EXPECT_EQ(fs::status(world->folder()).permissions(), fs::perms::owner_all | fs::perms::group_read);
}

TEST_P(BundleContract, ThereIsNoApplicationSupportWhereItCannotBeMade) {
  fs::create_directories(world->folder().parent_path());
  std::ofstream(world->folder()) << "a file in its place";
  EXPECT_EQ(world->bundle().applicationSupport(), std::nullopt);
}

}  // namespace tilwin::contract
