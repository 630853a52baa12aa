#pragma once

#include "platform/ports/Bundle.h"
#include "platform/ports/SystemReport.h"

namespace tilwin::macos {

/// The version of the system (NSProcessInfo, macOS 10.2), the kernel (uname, POSIX) and the version of this
/// program (Info.plist, CFBundleShortVersionString). Preferences are in no file that is this program's to
/// name. Any thread.
class MacSystemReport final : public SystemReport {
public:
  /// The bundle must outlive this.
  explicit MacSystemReport(Bundle& bundle) : bundle_(bundle) {}

  [[nodiscard]] SystemFacts facts() override;

private:
  Bundle& bundle_;
};

}  // namespace tilwin::macos
