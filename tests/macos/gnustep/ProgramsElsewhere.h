#pragma once

#import <AppKit/AppKit.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tilwin::macos {

struct ProgramElsewhere {
  std::int32_t processID = 0;
  std::optional<std::string> bundleIdentifier{};
  std::optional<std::string> localizedName{};
  NSApplicationActivationPolicy policy = NSApplicationActivationPolicyRegular;
};

/// The programs of the user that NSWorkspace tells of.
struct ProgramsElsewhere {
  std::optional<ProgramElsewhere> frontmost{};
  std::vector<ProgramElsewhere> running{};
};

[[nodiscard]] ProgramsElsewhere& programsElsewhere();

}  // namespace tilwin::macos
