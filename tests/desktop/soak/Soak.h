#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "tests/desktop/harness/Waiting.h"

namespace tilwin::desktop::soak {

/// The command-line arguments of a run.
struct SoakArguments {
  std::filesystem::path tilwin;
  std::uint32_t seed = 0;
  std::chrono::seconds time{120};
  /// How many acts instead of how long: to do a run again.
  std::optional<std::uint32_t> acts;
  bool isTold = false;  ///< prints every act
};

[[nodiscard]] SoakArguments& soakArguments();

}  // namespace tilwin::desktop::soak
