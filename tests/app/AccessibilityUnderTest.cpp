#include "tests/app/AccessibilityUnderTest.h"

namespace tilwin {

std::shared_ptr<Accessibility> accessibilityOver(SimulatedAccessibility& tree) {
  return {std::shared_ptr<void>(), &tree};
}

}  // namespace tilwin
