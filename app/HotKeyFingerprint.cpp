#include "app/HotKeyFingerprint.h"

namespace tilwin {

HotKeyFingerprint HotKeyFingerprint::of(const TilwinSettings& settings) {
  HotKeyFingerprint result{.shortcuts = settings.shortcuts, .disabled = settings.disabled};
  for (const CustomArea& area : settings.customAreas) result.areas.push_back({area.id, area.shortcut});
  return result;
}

}  // namespace tilwin
