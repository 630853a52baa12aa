#pragma once

#include <string_view>

#include "core/support/Fatal.h"

namespace tilwin {

/// A promise that holds whatever the input: when broken, the run ends with this input as what broke it.
inline void require(bool holds, std::string_view otherwise) {
  if (!holds) fatal(otherwise);
}

}  // namespace tilwin
