#pragma once

#import <ServiceManagement/ServiceManagement.h>

#include <string>

namespace tilwin::macos {

/// What the system and its user make of this program as a login item.
struct LoginItems {
  SMAppServiceStatus status = SMAppServiceStatusNotRegistered;
  SMAppServiceStatus granted = SMAppServiceStatusEnabled;  ///< after registering
  std::string refusal{};                                   ///< if not empty, nothing can be changed
};

[[nodiscard]] LoginItems& loginItems();

}  // namespace tilwin::macos
