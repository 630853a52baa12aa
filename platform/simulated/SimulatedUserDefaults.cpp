#include "platform/simulated/SimulatedUserDefaults.h"

namespace tilwin {

std::optional<std::string> SimulatedUserDefaults::data(std::string_view key) {
  const auto found = blobs_.find(key);
  if (found == blobs_.end()) return std::nullopt;
  return found->second;
}

void SimulatedUserDefaults::setData(std::string_view key, std::string_view blob) {
  ++writeCount_;
  if (!refusing_) store(key, blob);
}

}  // namespace tilwin
