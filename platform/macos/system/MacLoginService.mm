#include "platform/macos/system/MacLoginService.h"

#import <ServiceManagement/ServiceManagement.h>

#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

using Status = LoginService::Status;

}  // namespace

/// The system reports an error also when the program is registered already, and when it is not registered.
std::optional<std::string> MacLoginService::registerProgram() {
  NSError* error = nil;
  if ([[SMAppService mainAppService] registerAndReturnError:&error]) return std::nullopt;
  return status() == Status::enabled ? std::nullopt : std::optional(utf8([error localizedDescription]));
}

std::optional<std::string> MacLoginService::unregisterProgram() {
  NSError* error = nil;
  if ([[SMAppService mainAppService] unregisterAndReturnError:&error]) return std::nullopt;
  const bool isListed = status() == Status::enabled || status() == Status::requiresApproval;
  return isListed ? std::optional(utf8([error localizedDescription])) : std::nullopt;
}

Status MacLoginService::status() {
  switch ([[SMAppService mainAppService] status]) {
    case SMAppServiceStatusNotRegistered:
      return Status::notRegistered;
    case SMAppServiceStatusEnabled:
      return Status::enabled;
    case SMAppServiceStatusRequiresApproval:
      return Status::requiresApproval;
    default:
      return Status::notFound;
  }
}

}  // namespace tilwin::macos
