#pragma once

#include "platform/ports/Bundle.h"

namespace tilwin::qt {

/// Application Support is $XDG_DATA_HOME, or ~/.local/share where that is not set to an absolute path (XDG
/// Base Directory Specification).
class XdgBundle final : public Bundle {
public:
  [[nodiscard]] std::optional<std::filesystem::path> applicationSupport() override;
};

}  // namespace tilwin::qt
