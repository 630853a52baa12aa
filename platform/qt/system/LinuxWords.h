#pragma once

#include "platform/ports/DesktopWords.h"

namespace tilwin::qt {

/// The words of desktops on Linux. One table is all there is of them.
class LinuxWords final : public DesktopWords {
public:
  [[nodiscard]] Wording wording() const override;
};

}  // namespace tilwin::qt
