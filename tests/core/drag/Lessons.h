#pragma once

#include "core/drag/DragIntentModel.h"

namespace tilwin {

inline DragFeatures releasedAt(double distance) { return {.distance = distance, .settled = 1}; }

/// A model that would snap everywhere within its reach, and has been for long.
inline DragIntentModel sureOfSnapping() {
  DragIntentModel model;
  model.weights = {10, 0, 0, 0, 0, 0, 0};
  model.averaged = model.weights;
  return model;
}

}  // namespace tilwin
