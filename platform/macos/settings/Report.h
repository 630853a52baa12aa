#pragma once

#include <functional>

#include "platform/ports/FormEvent.h"

namespace tilwin::macos {

/// Where the controls of a form report what the user does. The call may remove the control that makes it.
/// Every control has a copy, which may outlive the window; it then does nothing.
using Report = std::function<void(const FormEvent&)>;

}  // namespace tilwin::macos
