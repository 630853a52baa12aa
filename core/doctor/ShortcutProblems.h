#pragma once

#include <string>
#include <vector>

#include "core/doctor/Diagnosis.h"

namespace tilwin {

/// The shortcuts that do nothing, with who keeps their keys where that is known. X11 does not tell: it is a
/// guess from what the running window manager uses at first.
[[nodiscard]] std::vector<std::string> shortcutProblems(const Diagnosis& diagnosis);

}  // namespace tilwin
