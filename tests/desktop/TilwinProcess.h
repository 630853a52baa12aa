#pragma once

#include <filesystem>
#include <string>

#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// The finished program, running in a session.
class TilwinProcess {
public:
  /// Starts it and waits until its shortcuts work; throws HarnessError if that does not happen.
  TilwinProcess(Session& session, const std::filesystem::path& executable);

  ChildProcess& process() { return process_; }
  [[nodiscard]] std::string log() const { return process_.output(); }

private:
  ChildProcess process_;
};

}  // namespace tilwin::desktop
