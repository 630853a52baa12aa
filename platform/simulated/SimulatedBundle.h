#pragma once

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/ports/Bundle.h"

namespace tilwin {

/// A user whose files lie in a folder of the test's choice, or who has no place for files.
class SimulatedBundle final : public Bundle {
public:
  explicit SimulatedBundle(std::optional<std::filesystem::path> folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::optional<std::filesystem::path> applicationSupport() override {
    std::error_code refusal;
    if (folder_) std::filesystem::create_directories(*folder_, refusal);
    return refusal ? std::nullopt : folder_;
  }

private:
  std::optional<std::filesystem::path> folder_;
};

}  // namespace tilwin
