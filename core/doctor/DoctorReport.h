#pragma once

#include <string>

#include "core/doctor/Diagnosis.h"

namespace tilwin {

/// What `tilwin doctor` prints: what is wrong, then all that was found, for the report of a bug.
struct DoctorReport {
  enum class Names : std::uint8_t {
    none,  ///< no title of a window, no name of a program and none that the user chose
    all,
  };

  [[nodiscard]] static std::string text(const Diagnosis& diagnosis, Names names);
};

}  // namespace tilwin
