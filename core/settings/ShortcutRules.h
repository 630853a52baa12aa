#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/settings/HotKeySpec.h"
#include "core/snap/actions/SnapAction.h"
#include "core/support/Uuid.h"

namespace tilwin {

struct TilwinSettings;

/// What a hot key triggers: an action, or the custom area with this id. Usable as a set element and a key of
/// hashed maps, as `std::hash` covers variants.
using ShortcutOwner = std::variant<SnapAction, Uuid>;

/// Which shortcuts may be given to whom, and how to say why not.
struct ShortcutRules {
  struct ReservedBySystem {
    std::string label;  ///< of the system's shortcut
    bool operator==(const ReservedBySystem&) const = default;
  };
  struct UsedBy {
    std::string name;  ///< the action's title or the area's name
    bool operator==(const UsedBy&) const = default;
  };
  struct NeedsModifier {
    bool operator==(const NeedsModifier&) const = default;
  };
  struct NeedsControlOrOption {
    bool operator==(const NeedsControlOrOption&) const = default;
  };
  using Problem = std::variant<ReservedBySystem, UsedBy, NeedsModifier, NeedsControlOrOption>;

  struct Reserved {
    HotKeySpec spec;
    std::string_view label;
  };
  /// Combinations that the system or every application uses.
  [[nodiscard]] static std::span<const Reserved> reserved();

  /// What stands against giving the shortcut to this owner, if anything. An owner is never in its own way.
  [[nodiscard]] static std::optional<Problem> problem(const HotKeySpec& with, const ShortcutOwner& owner,
                                                      const TilwinSettings& in);
  [[nodiscard]] static std::optional<Problem> problem(const HotKeySpec& with, SnapAction action,
                                                      const TilwinSettings& in);
  /// The sentence shown to the user.
  [[nodiscard]] static std::string message(const Problem& problem);
};

}  // namespace tilwin
