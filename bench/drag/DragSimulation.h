#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "bench/drag/SimulatedUser.h"
#include "core/drag/ShadowRecord.h"

namespace tilwin {

/// Generates the drag log of simulated users with the program's own feature extraction and recorder.
struct DragSimulation {
  /// `user` is an index into `SimulatedUser::all`. The same arguments give the same log, and a shorter log is
  /// a prefix of a longer one.
  [[nodiscard]] static std::vector<ShadowRecord> log(std::size_t user, std::uint32_t seed,
                                                     std::size_t records, SnapsBy by);
};

}  // namespace tilwin
