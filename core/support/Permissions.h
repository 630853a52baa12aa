#pragma once

#include <sys/types.h>

namespace tilwin {

/// The permissions of a file that nobody but its owner may read.
inline constexpr mode_t ownerOnly = 0600;

}  // namespace tilwin
