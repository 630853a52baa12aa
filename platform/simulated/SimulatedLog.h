#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ports/SystemLog.h"

namespace tilwin {

/// A system log that keeps its lines.
class SimulatedLog final : public SystemLog {
public:
  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

private:
  void write(std::string_view line) override { lines_.emplace_back(line); }

  std::vector<std::string> lines_;
};

}  // namespace tilwin
