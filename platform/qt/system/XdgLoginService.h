#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "platform/ports/LoginService.h"

namespace tilwin::qt {

/// Starts this program at login by a desktop entry in the user's autostart folder,
/// $XDG_CONFIG_HOME/autostart. An entry that a desktop's own settings have turned off counts as not
/// registered. Sources: Desktop Application Autostart Specification; Desktop Entry Specification.
class XdgLoginService final : public LoginService {
public:
  /// `executable` is what is started at login; an absolute path. Needs no application object.
  explicit XdgLoginService(std::filesystem::path executable = runningExecutable())
      : executable_(std::move(executable)) {}

  /// The executable of this process, also after it was replaced by an update.
  [[nodiscard]] static std::filesystem::path runningExecutable();

  /// Replaces an entry that does not start this executable or was turned off.
  std::optional<std::string> registerProgram() override;
  std::optional<std::string> unregisterProgram() override;
  /// `notFound` if there is no place for an entry or the present one cannot be read.
  [[nodiscard]] Status status() override;

private:
  std::filesystem::path executable_;
};

}  // namespace tilwin::qt
