#pragma once

#include <ostream>

#include "core/geometry/NormalizedRect.h"
#include "core/geometry/Rect.h"
#include "core/settings/HotKeySpec.h"
#include "core/snap/actions/SnapAction.h"

/// How a failed expectation shows values.

namespace tilwin {

inline std::ostream& operator<<(std::ostream& out, const Rect& rect) {
  return out << rect.width << "x" << rect.height << " at " << rect.x << "," << rect.y;
}

inline std::ostream& operator<<(std::ostream& out, const NormalizedRect& rect) {
  return out << rect.width << "x" << rect.height << " at " << rect.x << "," << rect.y;
}

inline std::ostream& operator<<(std::ostream& out, const SnapAction& action) {
  return out << SnapActions::rawValue(action);
}

inline std::ostream& operator<<(std::ostream& out, const HotKeySpec& spec) {
  return out << "key " << spec.keyCode << " with modifiers " << spec.modifiers;
}

}  // namespace tilwin
