#include "platform/macos/system/MacBundle.h"

#include "tests/contract/UserFilesContract.h"
#include "tests/macos/gnustep/UserFolder.h"
#include "tests/macos/services/TestBundle.h"

namespace tilwin::macos {
namespace {

class MacBundleWorld : public contract::BundleWorld {
public:
  MacBundleWorld() { setUserFolder(home_.path()); }

  Bundle& bundle() override { return bundle_; }
  [[nodiscard]] std::filesystem::path folder() const override {
    return applicationSupportFolder(home_.path());
  }

private:
  AutoreleasePool pool_;
  TemporaryFolder home_;
  MacBundle bundle_{[NSBundle mainBundle]};
};

std::unique_ptr<contract::BundleWorld> makeMacBundleWorld() { return std::make_unique<MacBundleWorld>(); }

TEST(MacBundle, TextsTruthValuesAndWholeNumbersOfTheInformationDictionaryAreRead) {
  const AutoreleasePool pool;
  const TestBundle program("<key>SUFeedURL</key><string>https://example.org/ü?a&amp;b</string>"
                           "<key>Empty</key><string></string>"
                           "<key>LSUIElement</key><true/><key>Off</key><false/>"
                           "<key>Zero</key><integer>0</integer><key>One</key><integer>1</integer>"
                           "<key>Big</key><integer>-9007199254740993</integer>");
  const Bundle::Information expected{{"SUFeedURL", "https://example.org/ü?a&b"},
                                     {"Empty", ""},
                                     {"LSUIElement", true},
                                     {"Off", false},
                                     {"Zero", std::int64_t{0}},
                                     {"One", std::int64_t{1}},
                                     {"Big", std::int64_t{-9007199254740993}}};
  EXPECT_EQ(MacBundle(program.bundle()).information(), expected);
}

TEST(MacBundle, EntriesOfOtherKindsAreLeftOut) {
  const AutoreleasePool pool;
  const TestBundle program("<key>Real</key><real>1.5</real><key>Data</key><data>AAAA</data>"
                           "<key>Date</key><date>2026-01-01T00:00:00Z</date>"
                           "<key>List</key><array><string>a</string></array><key>Table</key><dict/>");
  EXPECT_EQ(MacBundle(program.bundle()).information(), Bundle::Information());
}

TEST(MacBundle, AProgramWithoutAnInformationDictionaryHasNoInformation) {
  const AutoreleasePool pool;
  EXPECT_EQ(MacBundle(nil).information(), Bundle::Information());
}

}  // namespace
}  // namespace tilwin::macos

namespace tilwin::contract {

// Those of macOS are tried beside the other C interfaces.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(UserDefaultsContract);
INSTANTIATE_TEST_SUITE_P(MacOS, BundleContract, testing::Values(&macos::makeMacBundleWorld));

}  // namespace tilwin::contract
