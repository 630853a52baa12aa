#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_set>

#include "app/settings/Published.h"
#include "core/settings/ShortcutRules.h"
#include "core/settings/TilwinSettings.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin {

/// The user's settings, read when it is made and stored at each assignment. What is stored is brought into
/// range; what is in memory stays as assigned. Stored settings that cannot be read count as none; before the
/// first write over them they are kept under a key of their own.
class SettingsStore {
public:
  static constexpr std::string_view key = "tilwin.settings.v1";
  static constexpr std::string_view unreadableKey = "tilwin.settings.v1.unreadable";
  /// Larger blobs are not even looked at, and never written. Many times what anybody's settings take, and
  /// read in well under a second whatever is in it.
  static constexpr std::size_t largestBlob = std::size_t{1} << 18;

  /// The port must outlive the store.
  explicit SettingsStore(UserDefaults& defaults);

  Published<TilwinSettings> settings;
  /// Whose hot key the desktop refused at the last registration; never stored.
  Published<std::unordered_set<ShortcutOwner>> unavailable;

private:
  struct Stored;

  SettingsStore(UserDefaults& defaults, Stored stored);
  void save(TilwinSettings changed);
  bool keepUnreadable();

  UserDefaults& defaults_;
  bool isUnreadable_;  ///< what is stored, so far
};

}  // namespace tilwin
