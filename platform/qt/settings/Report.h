#pragma once

#include <functional>

#include "platform/ports/FormEvent.h"

namespace tilwin::qt {

/// Where the controls of a form report what the user does. The call may remove the control that makes it.
using Report = std::function<void(const FormEvent&)>;

}  // namespace tilwin::qt
