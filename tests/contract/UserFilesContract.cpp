#include "tests/contract/UserFilesContract.h"

#include <rapidcheck.h>

#include <fstream>
#include <string>

namespace tilwin::contract {
namespace {

using Blob = std::optional<std::string>;

constexpr const char* otherKey = "tilwin.settings.v1.unreadable";

std::string everyByte() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

}  // namespace

TEST_P(UserDefaultsContract, NothingIsStoredAtFirst) { EXPECT_EQ(world->defaults().data(key), std::nullopt); }

TEST_P(UserDefaultsContract, WhatIsStoredIsThereAtOnceAndAfterTheNextStart) {
  world->defaults().setData(key, R"({"gap":8,"outer":0.5})");
  EXPECT_EQ(world->defaults().data(key), R"({"gap":8,"outer":0.5})");
  world->restart();
  EXPECT_EQ(world->defaults().data(key), R"({"gap":8,"outer":0.5})");
}

TEST_P(UserDefaultsContract, ALaterBlobReplacesAnEarlierOne) {
  world->defaults().setData(key, "first, and long");
  world->defaults().setData(key, "second");
  world->restart();
  EXPECT_EQ(world->defaults().data(key), "second");
}

TEST_P(UserDefaultsContract, KeysAreApart) {
  world->defaults().setData(key, "one");
  world->defaults().setData(otherKey, "two");
  world->restart();
  EXPECT_EQ(world->defaults().data(key), "one");
  EXPECT_EQ(world->defaults().data(otherKey), "two");
  EXPECT_EQ(world->defaults().data("tilwin.settings"), std::nullopt);
}

TEST_P(UserDefaultsContract, AnyBytesSurvive) {
  for (const std::string& blob :
       {std::string(), everyByte(), everyByte() + everyByte(), std::string("\0", 1),
        std::string("\xef\xbb\xbf{}"), std::string("@ByteArray(x)"), std::string("@Invalid()"),
        std::string("@@"), std::string(" a "), std::string("a,b"), std::string(R"("a","b")"),
        std::string("\"quoted\""), std::string("50%"), std::string("\\x41;#=[]\r\n\t"),
        std::string("\x01") + "f", std::string("ü⌃😀"), std::string(300000, '"')}) {
    world->defaults().setData(key, blob);
    world->restart();
    EXPECT_EQ(world->defaults().data(key), blob);
  }
}

TEST_P(UserDefaultsContract, RandomBytesSurvive) {
  EXPECT_TRUE(rc::check([&](const std::string& blob) {
    world->defaults().setData(key, blob);
    world->restart();
    RC_ASSERT(world->defaults().data(key) == blob);
  }));
}

TEST_P(UserDefaultsContract, AFailedWriteLeavesWhatWasStored) {
  world->defaults().setData(key, "old");
  world->setDiskFull(true);
  world->defaults().setData(key, "new");
  world->defaults().setData(otherKey, "other");
  EXPECT_EQ(world->defaults().data(key), "old");
  EXPECT_EQ(world->defaults().data(otherKey), std::nullopt);
  world->setDiskFull(false);
  world->restart();
  EXPECT_EQ(world->defaults().data(key), "old");
  EXPECT_EQ(world->defaults().data(otherKey), std::nullopt);
}

TEST_P(UserDefaultsContract, AFailedFirstWriteLeavesNothing) {
  world->setDiskFull(true);
  world->defaults().setData(key, "new");
  EXPECT_EQ(world->defaults().data(key), std::nullopt);
}

TEST_P(UserDefaultsContract, AfterAFailureTheNextWriteWorksAgain) {
  world->setDiskFull(true);
  world->defaults().setData(key, "first");
  world->setDiskFull(false);
  world->defaults().setData(key, "second");
  world->restart();
  EXPECT_EQ(world->defaults().data(key), "second");
}

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
