#pragma once

#include <string>
#include <vector>

#include "core/doctor/Diagnosis.h"

namespace tilwin {

/// What is wrong and what to do about it, a sentence or two for each, the worst first. Names that the user
/// chose and those of programs are in none of them.
struct Problems {
  [[nodiscard]] static std::vector<std::string> of(const Diagnosis& diagnosis);
};

}  // namespace tilwin
