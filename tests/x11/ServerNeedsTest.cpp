#include "platform/x11/wire/ServerNeeds.h"

#include <gtest/gtest.h>

namespace tilwin::x11 {

namespace {

constexpr ServerNeeds everything{.randr = {1, 6}, .xinput = {2, 4}, .xkb = {1, 0}, .shape = {1, 1}};

struct Lack {
  const char* name;
  void (*take)(ServerNeeds&);
  const char* named;
};

class MissingNeed : public testing::TestWithParam<Lack> {};

}  // namespace

TEST(ServerNeeds, AServerWithAllOfThemLacksNothing) { EXPECT_FALSE(missing(everything)); }

TEST_P(MissingNeed, IsNamedInOneLine) {
  ServerNeeds offered = everything;
  GetParam().take(offered);
  const auto complaint = missing(offered);
  ASSERT_TRUE(complaint);
  EXPECT_NE(complaint->find(GetParam().named), std::string::npos) << *complaint;
  EXPECT_EQ(complaint->find('\n'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    ServerNeeds, MissingNeed,
    testing::Values(Lack{"RandR",
                         [](ServerNeeds& offered) {
                           offered.randr = {1, 4};
                         },
                         "RandR 1.5"},
                    Lack{"NoRandRAtAll", [](ServerNeeds& offered) { offered.randr = {}; }, "RandR 1.5"},
                    Lack{"XInput",
                         [](ServerNeeds& offered) {
                           offered.xinput = {2, 0};
                         },
                         "XInput 2.1"},
                    Lack{"NoXInputAtAll", [](ServerNeeds& offered) { offered.xinput = {}; }, "XInput 2.1"},
                    Lack{"Xkb", [](ServerNeeds& offered) { offered.xkb = {}; }, "XKB"},
                    Lack{"Shape",
                         [](ServerNeeds& offered) {
                           offered.shape = {1, 0};
                         },
                         "SHAPE extension 1.1"},
                    Lack{"NoShapeAtAll", [](ServerNeeds& offered) { offered.shape = {}; },
                         "SHAPE extension 1.1"}),
    [](const auto& entry) { return std::string(entry.param.name); });

}  // namespace tilwin::x11
