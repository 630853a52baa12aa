#pragma once

#include "platform/ports/LoginService.h"

namespace tilwin::macos {

/// This program as a login item of the user (SMAppService, macOS 13.0). The system asks the user itself and
/// may refuse a program that is not signed or not in a folder for applications. Main thread only; each call
/// waits for the answer of a system service.
class MacLoginService final : public LoginService {
public:
  std::optional<std::string> registerProgram() override;
  std::optional<std::string> unregisterProgram() override;
  [[nodiscard]] Status status() override;
};

}  // namespace tilwin::macos
