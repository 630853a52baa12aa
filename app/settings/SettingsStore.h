#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_set>

#include "app/settings/Published.h"
#include "core/settings/ShortcutRules.h"
#include "core/settings/TilwinSettings.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin {

/// The user's settings: read in the constructor, written on each assignment to `settings`. Written values are
/// clamped, the value in memory stays as assigned. If the stored settings cannot be read, the defaults apply,
/// and the stored ones are copied to `unreadableKey` before the first write. Settings that are too large are
/// not written; the log says so once.
class SettingsStore {
public:
  static constexpr std::string_view key = "tilwin.settings.v1";
  static constexpr std::string_view unreadableKey = "tilwin.settings.v1.unreadable";
  /// Larger blobs are not parsed and not written. In bytes; parsed in well under a second whatever they
  /// contain. The program's own changes never lead beyond it: `TilwinSettings` limits the lists and names
  /// that grow.
  static constexpr std::size_t largestBlob = std::size_t{1} << 18;

  /// The ports must outlive the store. Without a log nothing is said.
  explicit SettingsStore(UserDefaults& defaults, SystemLog* log = nullptr);

  /// Whether there are stored settings that cannot be read.
  [[nodiscard]] static bool areUnreadable(UserDefaults& defaults);

  Published<TilwinSettings> settings;
  /// The actions and areas whose hot key the desktop refused at the last registration. Not stored.
  Published<std::unordered_set<ShortcutOwner>> unavailable;

private:
  struct Stored;

  SettingsStore(UserDefaults& defaults, SystemLog* log, Stored stored);
  void save(TilwinSettings changed);
  bool fits(std::size_t size);
  bool keepUnreadable();

  UserDefaults& defaults_;
  SystemLog* log_;
  bool isUnreadable_;  ///< whether the stored settings cannot be read and are not yet copied
  bool isTooLarge_ = false;
};

}  // namespace tilwin
