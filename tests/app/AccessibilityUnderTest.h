#pragma once

#include <memory>

#include "platform/simulated/SimulatedAccessibility.h"

namespace tilwin {

/// The accessibility through which tests of the window provider see a tree, which must outlive it. Each
/// program that has such tests says which: the tree itself, or an adapter with the tree behind the interfaces
/// of a real desktop.
[[nodiscard]] std::shared_ptr<Accessibility> accessibilityOver(SimulatedAccessibility& tree);

}  // namespace tilwin
