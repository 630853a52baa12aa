#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tilwin {

/// A running program of the user.
struct RunningApplication {
  std::int32_t processID = 0;
  std::optional<std::string> bundleIdentifier{};
  std::optional<std::string> localizedName{};
  bool isRegular = true;  ///< an ordinary program with windows, not a background agent or menu-bar item

  bool operator==(const RunningApplication&) const = default;
};

/// Lists the running programs. Source: NSWorkspace of macOS.
class Workspace {
public:
  Workspace() = default;
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;
  virtual ~Workspace() = default;

  /// The program that has the keyboard focus; nothing if it is unknown.
  [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() = 0;
  /// In no particular order.
  [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() = 0;
  /// Nothing if this program was not started from a bundle.
  [[nodiscard]] virtual std::optional<std::string> ownBundleIdentifier() = 0;
};

}  // namespace tilwin
