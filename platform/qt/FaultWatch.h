#pragma once

#include <functional>
#include <string>

namespace tilwin::qt {

/// Qt reads some replies of the X server without looking whether they have come, which without a server is a
/// memory fault. As long as this lives, the process ends at a fault that is explained so: with this line on
/// standard error and exit status 1. Any other fault takes its course. One at a time. Source: POSIX,
/// sigaction.
class FaultWatch {
public:
  /// `isExplained` is called in a signal handler: it may look at what is there, and must neither wait nor
  /// allocate.
  FaultWatch(std::function<bool()> isExplained, const std::string& line);
  FaultWatch(const FaultWatch&) = delete;
  FaultWatch& operator=(const FaultWatch&) = delete;
  ~FaultWatch();
};

}  // namespace tilwin::qt
