#include "tests/contract/SimulatedWorld.h"

namespace tilwin::contract {
namespace {

std::unique_ptr<World> makeSimulatedWorld() { return std::make_unique<SimulatedWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Simulated, WindowProviderContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, ReportedFrameContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, LargeWindowContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, MaximizedWindowContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, HotKeysContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, MainQueueContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, PointerContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, CancelledDragContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, ScreenChangesContract, testing::Values(&makeSimulatedWorld));

}  // namespace tilwin::contract
