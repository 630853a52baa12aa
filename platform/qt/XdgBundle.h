#pragma once

#include "platform/ports/Bundle.h"

namespace tilwin::qt {

/// The application support folder is $XDG_DATA_HOME, or ~/.local/share if that variable is not an absolute
/// path. Source: XDG Base Directory Specification.
class XdgBundle final : public Bundle {
public:
  [[nodiscard]] std::optional<std::filesystem::path> applicationSupport() override;
};

}  // namespace tilwin::qt
