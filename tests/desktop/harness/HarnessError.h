#pragma once

#include <stdexcept>

namespace tilwin::desktop {

/// A part of the harness failed: a program did not start, a window never appeared, the X connection was lost.
/// The text says which and includes the last lines of the program's log. Fails the test.
class HarnessError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// The machine cannot run the requested X server (no root, no driver).
class ServerUnavailable : public HarnessError {
public:
  using HarnessError::HarnessError;
};

}  // namespace tilwin::desktop
