#include "app/login/LoginItem.h"

namespace tilwin {

bool LoginItem::set(bool enabled) {
  if (const auto error = enabled ? service_.registerProgram() : service_.unregisterProgram()) {
    log_.write("Tilwin login item: " + *error);
    return false;
  }
  return isOn() == enabled;
}

std::string LoginItem::whyNotEnabled(LoginService::Status status, const Wording& wording) {
  if (status == LoginService::Status::requiresApproval) {
    return wording.text(
        "macOS needs your approval: open System Settings, General, Login Items, and allow it.");
  }
  return wording.text("macOS did not turn this on. Move the app to the Applications folder and try again.");
}

}  // namespace tilwin
