#include <gtest/gtest.h>

#include <memory>

#include "tests/contract/SettingsWindowContract.h"
#include "tests/macos/settings/MacSettingsDriver.h"

namespace tilwin::contract {

INSTANTIATE_TEST_SUITE_P(Mac, SettingsWindowContract,
                         testing::Values(+[]() -> std::unique_ptr<SettingsWindowDriver> {
                           return std::make_unique<macos::MacSettingsDriver>();
                         }));

}  // namespace tilwin::contract
