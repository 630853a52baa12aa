#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/drag/ShadowRecord.h"

namespace tilwin {

/// The drag log of simulated users: their drags go through the program's own features and recorder.
struct DragSimulation {
  /// Which place of the pointer decides whether a drag snaps.
  enum class SnapsBy : std::uint8_t {
    release,      ///< where the button went up
    lastChecked,  ///< the last place that was looked at before that, up to 0.03 s older
  };

  /// `user` counts in `SimulatedUser::all`. The same numbers give the same log, and a longer log begins with
  /// the shorter one.
  [[nodiscard]] static std::vector<ShadowRecord> log(std::size_t user, std::uint32_t seed,
                                                     std::size_t records, SnapsBy by);
};

}  // namespace tilwin
