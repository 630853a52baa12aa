#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/ports/Workspace.h"
#include "platform/simulated/SimulatedWindows.h"

namespace tilwin {

/// The running programs of a simulated desktop: those that have a window, and those a test adds.
class SimulatedApplications final : public Workspace {
public:
  static constexpr auto ownIdentifier = "org.example.Tilwin";

  /// The windows must outlive this.
  explicit SimulatedApplications(SimulatedWindows& windows) : windows_(windows) {}

  /// Programs without a window.
  std::vector<RunningApplication> windowless{};
  /// The frontmost program, if it is not the one of the focused window.
  std::optional<RunningApplication> frontmost{};

private:
  std::optional<RunningApplication> frontmostApplication() override {
    if (frontmost) return frontmost;
    const auto focused = windows_.focused();
    return focused ? std::optional(ownerOf(*windows_.find(*focused))) : std::nullopt;
  }
  std::vector<RunningApplication> runningApplications() override {
    auto result = windowless;
    for (const auto handle : windows_.stack()) {
      auto owner = ownerOf(*windows_.find(handle));
      if (std::ranges::find(result, owner) == result.end()) result.push_back(std::move(owner));
    }
    return result;
  }
  std::optional<std::string> ownBundleIdentifier() override { return ownIdentifier; }

  [[nodiscard]] static RunningApplication ownerOf(const SimulatedWindow& window) {
    const auto& identifier = window.isOfThisProgram ? ownIdentifier : window.bundleID;
    return {.bundleIdentifier = identifier, .localizedName = window.appName};
  }

  SimulatedWindows& windows_;
};

}  // namespace tilwin
