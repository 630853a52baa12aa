#pragma once

#include <string>

#include "tests/desktop/harness/ChildProcess.h"

namespace tilwin::desktop {

/// A program that writes one line to a descriptor when it is ready, and the line.
struct ReadyProcess {
  ChildProcess process;
  std::string line;
};

/// The descriptor the program is given for its line.
inline constexpr int readyDescriptor = 3;

/// Starts the program and waits for its line on the descriptor. Throws HarnessError, with the end of its
/// output, if it ends first or on timeout.
ReadyProcess startReady(Launch launch, Milliseconds timeout = startTimeout, int descriptor = readyDescriptor);

}  // namespace tilwin::desktop
