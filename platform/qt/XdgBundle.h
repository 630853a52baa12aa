#pragma once

#include <utility>

#include "platform/ports/Bundle.h"

namespace tilwin::qt {

/// The application support folder is $XDG_DATA_HOME, or ~/.local/share if that variable is not an absolute
/// path. Source: XDG Base Directory Specification.
class XdgBundle final : public Bundle {
public:
  /// `built` is the information dictionary.
  explicit XdgBundle(Information built = {}) : built_(std::move(built)) {}

  [[nodiscard]] std::optional<std::filesystem::path> applicationSupport() override;
  [[nodiscard]] Information information() override { return built_; }

private:
  Information built_;
};

}  // namespace tilwin::qt
