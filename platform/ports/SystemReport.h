#pragma once

#include "core/doctor/SystemFacts.h"

namespace tilwin {

/// What the system tells of itself for the report of a bug, and where the program's files are. It makes and
/// changes nothing. Main thread only.
class SystemReport {
public:
  SystemReport() = default;
  SystemReport(const SystemReport&) = delete;
  SystemReport& operator=(const SystemReport&) = delete;
  virtual ~SystemReport() = default;

  [[nodiscard]] virtual SystemFacts facts() = 0;
};

}  // namespace tilwin
