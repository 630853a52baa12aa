#include "tests/contract/AccessibilityWorld.h"

namespace tilwin::contract {
namespace {

std::unique_ptr<World> makeAccessibilityWorld() { return std::make_unique<AccessibilityWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Accessibility, WindowProviderContract, testing::Values(&makeAccessibilityWorld));
INSTANTIATE_TEST_SUITE_P(Accessibility, LargeWindowContract, testing::Values(&makeAccessibilityWorld));

}  // namespace tilwin::contract
