#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tilwin {

/// A program of the user's that is running.
struct RunningApplication {
  std::int32_t processID = 0;
  std::optional<std::string> bundleIdentifier{};
  std::optional<std::string> localizedName{};
  bool isRegular = true;  ///< an ordinary program with windows, not an agent or a menu-bar item

  bool operator==(const RunningApplication&) const = default;
};

/// Knows which programs are running.
class Workspace {
public:
  Workspace() = default;
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;
  virtual ~Workspace() = default;

  /// The program that receives the keys.
  [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() = 0;
  /// In no order that means anything.
  [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() = 0;
  /// Nothing when this program was not started from a bundle.
  [[nodiscard]] virtual std::optional<std::string> ownBundleIdentifier() = 0;
};

}  // namespace tilwin
