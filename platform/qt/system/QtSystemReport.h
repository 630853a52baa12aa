#pragma once

#include <string>
#include <utility>

#include "platform/ports/SystemReport.h"

namespace tilwin::qt {

/// What Qt knows of the system (QSysInfo, which reads os-release), and the session by its environment.
/// Source: XDG Base Directory Specification; systemd, XDG_SESSION_TYPE.
class QtSystemReport final : public SystemReport {
public:
  /// Of this program.
  explicit QtSystemReport(std::string version) : version_(std::move(version)) {}

  [[nodiscard]] SystemFacts facts() override;

private:
  std::string version_;
};

}  // namespace tilwin::qt
