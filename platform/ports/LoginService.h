#pragma once

#include <optional>
#include <string>

namespace tilwin {

/// Starts this program when the user logs in. Source: SMAppService of macOS; the XDG Autostart specification.
class LoginService {
public:
  enum class Status { notRegistered, enabled, requiresApproval, notFound };

  LoginService() = default;
  LoginService(const LoginService&) = delete;
  LoginService& operator=(const LoginService&) = delete;
  virtual ~LoginService() = default;

  /// Both return the description of the error, or nothing if they succeeded. Asking again is no error.
  virtual std::optional<std::string> registerProgram() = 0;
  virtual std::optional<std::string> unregisterProgram() = 0;
  [[nodiscard]] virtual Status status() = 0;
};

}  // namespace tilwin
