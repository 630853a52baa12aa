#pragma once

#include <string>

#include "core/settings/Wording.h"
#include "platform/ports/LoginService.h"
#include "platform/ports/SystemLog.h"

namespace tilwin {

/// Starting this program when the user logs in, as the settings window and the command line turn it on and
/// off. Both ports must outlive it.
class LoginItem {
public:
  LoginItem(LoginService& service, SystemLog& log) : service_(service), log_(log) {}

  /// Whether the program now is what was asked for: started at login, or not. An error is logged.
  bool set(bool enabled);
  [[nodiscard]] bool isOn() { return status() == LoginService::Status::enabled; }
  [[nodiscard]] LoginService::Status status() { return service_.status(); }

  /// What to tell the user if it could not be turned on.
  [[nodiscard]] static std::string whyNotEnabled(LoginService::Status status, const Wording& wording);

private:
  LoginService& service_;
  SystemLog& log_;
};

}  // namespace tilwin
