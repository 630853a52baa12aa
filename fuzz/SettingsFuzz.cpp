// Stored settings as anybody or anything may have left them: whatever is read, brought into range and
// written, reads back equal.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

#include "core/settings/SettingsCoding.h"
#include "fuzz/Require.h"

namespace {

using tilwin::require;
using tilwin::TilwinSettings;

bool isOnScreen(const tilwin::NormalizedRect& rect) {
  return rect.x >= 0 && rect.y >= 0 && rect.width >= 0.05 && rect.height >= 0.05 &&
         rect.x + rect.width <= 1 && rect.y + rect.height <= 1;
}

void requireInRange(const TilwinSettings& settings) {
  require(settings.gap >= 0 && settings.gap <= 64, "A gap out of range.");
  require(settings.outer >= 0 && settings.outer <= 64, "A margin out of range.");
  require(settings.customAreas.size() <= 12, "Too many areas.");
  require(std::all_of(settings.customAreas.begin(), settings.customAreas.end(),
                      [](const auto& area) { return isOnScreen(area.rect); }),
          "An area off the screen.");
}

void requireReadsBack(const TilwinSettings& settings,
                      const std::variant<std::string, tilwin::JsonError>& text) {
  require(std::holds_alternative<std::string>(text), "Settings in range that cannot be written.");
  const auto back = tilwin::decodeJson<TilwinSettings>(std::get<std::string>(text));
  require(std::holds_alternative<TilwinSettings>(back), "Written settings that cannot be read.");
  require(std::get<TilwinSettings>(back) == settings, "Settings that change by being written and read.");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  auto decoded = tilwin::decodeJson<TilwinSettings>(text);
  auto* settings = std::get_if<TilwinSettings>(&decoded);
  if (settings == nullptr) return 0;
  settings->clamp();
  requireInRange(*settings);
  requireReadsBack(*settings, tilwin::encodeJson(*settings));
  requireReadsBack(*settings, tilwin::encodePrettyJson(*settings));
  return 0;
}
