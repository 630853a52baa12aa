#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>

namespace tilwin::desktop {

/// The memory and processor use of a process, from /proc (proc(5)).
struct ResourceUse {
  std::int64_t proportionalKiB = 0;  ///< PSS: private memory and a proportional share of shared memory
  std::int64_t wakeUps = 0;          ///< voluntary context switches of its threads
  std::int64_t processorTime = 0;    ///< nanoseconds, summed over its live threads
  std::int64_t waitingTime = 0;      ///< the same, ready to run but without a processor
  int threads = 0;
  bool operator==(const ResourceUse&) const = default;
};

/// Returns nothing if the process has ended.
std::optional<ResourceUse> useOf(pid_t process);

}  // namespace tilwin::desktop
