#pragma once

#include <string_view>

#include "core/support/Fatal.h"

namespace tilwin {

/// An invariant that must hold for any input. Ends the run if it does not, so that the fuzzer keeps the
/// input.
inline void require(bool holds, std::string_view otherwise) {
  if (!holds) fatal(otherwise);
}

}  // namespace tilwin
