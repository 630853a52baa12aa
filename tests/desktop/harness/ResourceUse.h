#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>

namespace tilwin::desktop {

/// What a process costs the machine, from /proc (proc(5)).
struct ResourceUse {
  std::int64_t proportionalKiB = 0;  ///< PSS: its own memory and its share of what it shares
  std::int64_t wakeUps = 0;          ///< how often its threads have gone to sleep and been woken
  std::int64_t processorTime = 0;    ///< nanoseconds on a processor, of its threads that still run
  int threads = 0;
  bool operator==(const ResourceUse&) const = default;
};

/// Nothing when the process has gone.
std::optional<ResourceUse> useOf(pid_t process);

}  // namespace tilwin::desktop
