#pragma once

#import <Foundation/Foundation.h>

#include "platform/macos/support/Held.h"
#include "platform/ports/Bundle.h"

namespace tilwin::macos {

/// The information dictionary of a bundle (NSBundle, macOS 10.0) and the Application Support folder of the
/// user (NSFileManager, macOS 10.6). Any thread.
class MacBundle final : public Bundle {
public:
  explicit MacBundle(NSBundle* bundle) : bundle_(retained(bundle)) {}

  [[nodiscard]] std::optional<std::filesystem::path> applicationSupport() override;
  /// Without entries that are neither texts nor truth values nor whole numbers.
  [[nodiscard]] Information information() override;

private:
  Held<NSBundle*> bundle_;
};

}  // namespace tilwin::macos
