#include "app/settings/SettingsStore.h"

#include <string>
#include <utility>
#include <variant>

#include "core/settings/SettingsCoding.h"

namespace tilwin {

struct SettingsStore::Stored {
  TilwinSettings settings{};
  bool isUnreadable = false;

  static Stored in(UserDefaults& defaults) {
    const auto blob = defaults.data(key);
    if (!blob) return {};
    if (blob->size() > largestBlob) return {.isUnreadable = true};
    auto decoded = decodeJson<TilwinSettings>(*blob);
    auto* settings = std::get_if<TilwinSettings>(&decoded);
    if (settings == nullptr) return {.isUnreadable = true};
    settings->clamp();
    return {.settings = std::move(*settings)};
  }
};

bool SettingsStore::areUnreadable(UserDefaults& defaults) { return Stored::in(defaults).isUnreadable; }

SettingsStore::SettingsStore(UserDefaults& defaults, SystemLog* log)
    : SettingsStore(defaults, log, Stored::in(defaults)) {}

SettingsStore::SettingsStore(UserDefaults& defaults, SystemLog* log, Stored stored)
    : settings(std::move(stored.settings), [this](const TilwinSettings& changed) { save(changed); }),
      defaults_(defaults),
      log_(log),
      isUnreadable_(stored.isUnreadable) {}

void SettingsStore::save(TilwinSettings changed) {
  changed.clamp();
  const auto encoded = encodeJson(changed);
  const auto* blob = std::get_if<std::string>(&encoded);
  if (blob == nullptr || !fits(blob->size()) || !keepUnreadable()) return;
  defaults_.setData(key, *blob);
}

bool SettingsStore::fits(std::size_t size) {
  const bool wasTooLarge = std::exchange(isTooLarge_, size > largestBlob);
  if (isTooLarge_ && !wasTooLarge && log_ != nullptr) {
    log_->write("Tilwin: settings of more than 256 KiB are not saved");
  }
  return !isTooLarge_;
}

/// Copies unreadable stored settings to `unreadableKey`. False if that failed, so that writing would lose
/// them.
bool SettingsStore::keepUnreadable() {
  if (!isUnreadable_) return true;
  const auto blob = defaults_.data(key);
  if (blob) defaults_.setData(unreadableKey, *blob);
  isUnreadable_ = blob && defaults_.data(unreadableKey) != blob;
  return !isUnreadable_;
}

}  // namespace tilwin
