#pragma once

#include "platform/ports/Workspace.h"

namespace tilwin {

/// Running programs as whoever plays the user lists them.
class SimulatedWorkspace final : public Workspace {
public:
  std::optional<RunningApplication> frontmost{};
  std::vector<RunningApplication> running{};
  std::optional<std::string> own = "org.example.Tilwin";

  std::optional<RunningApplication> frontmostApplication() override { return frontmost; }
  std::vector<RunningApplication> runningApplications() override { return running; }
  std::optional<std::string> ownBundleIdentifier() override { return own; }
};

}  // namespace tilwin
