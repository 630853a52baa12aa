#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "tests/desktop/harness/Waiting.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// What a process holds, from /proc.
struct ProcessUse {
  std::int64_t residentKiB = 0;
  Milliseconds cpuTime{0};
  int threads = 0;
  int openFiles = 0;
  bool operator==(const ProcessUse&) const = default;
};

/// Nothing when the process has gone.
std::optional<ProcessUse> useOf(pid_t process);

/// What one X client holds in the server: the count of resources by type name ("WINDOW", "PIXMAP", "GC",
/// ...; X-Resource extension) and the bytes of its pixmaps.
struct ServerUse {
  std::map<std::string, std::uint32_t> counts;
  std::uint64_t pixmapBytes = 0;
  bool operator==(const ServerUse&) const = default;
};

/// Summed over all connections of the process; nothing when it has none.
std::optional<ServerUse> serverUseOf(XConnection& connection, pid_t process);

}  // namespace tilwin::desktop
