#include "tests/contract/SettingsWindowContract.h"
#include "tests/contract/qt/QtSettingsDriver.h"

namespace tilwin::contract {
namespace {

std::unique_ptr<SettingsWindowDriver> makeQtDriver() { return std::make_unique<QtSettingsDriver>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Qt, SettingsWindowContract, testing::Values(&makeQtDriver));

}  // namespace tilwin::contract
