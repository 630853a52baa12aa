#pragma once

#include <stdexcept>

namespace tilwin::desktop {

/// Something the kit needs could not be had: a program did not start, a window never came, the X connection
/// broke. The text says what and, where a program wrote a log, its last lines. In a test it is a failure.
class HarnessError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// The machine cannot run the X server asked for (no root, no driver): a reason to leave a test out, said
/// aloud.
class ServerUnavailable : public HarnessError {
public:
  using HarnessError::HarnessError;
};

}  // namespace tilwin::desktop
