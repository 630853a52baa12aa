#include "platform/macos/windows/MacAccessibility.h"
#include "tests/app/AccessibilityUnderTest.h"
#include "tests/macos/c/accessibility/AccessiblePrograms.h"

namespace tilwin {
namespace {

struct AdapterBeforeATree {
  explicit AdapterBeforeATree(SimulatedAccessibility& tree) : programs(tree) {}

  macos::c::AccessiblePrograms programs;
  macos::MacAccessibility adapter;
};

}  // namespace

std::shared_ptr<Accessibility> accessibilityOver(SimulatedAccessibility& tree) {
  const auto both = std::make_shared<AdapterBeforeATree>(tree);
  return {both, &both->adapter};
}

}  // namespace tilwin
