#pragma once

#include <filesystem>
#include <string>

#include "core/doctor/Diagnosis.h"

namespace tilwin {

/// What there is to say of a file without reading it. A file of which nothing can be learnt counts as
/// missing.
[[nodiscard]] FileFacts looksOf(std::string what, std::filesystem::path path, bool isPrivate);

}  // namespace tilwin
