#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/settings/HotKeySpec.h"
#include "core/settings/Wording.h"
#include "core/snap/actions/SnapAction.h"
#include "core/support/Uuid.h"

namespace tilwin {

struct TilwinSettings;

/// What a hot key triggers: an action, or the custom area with this id. Hashable, as `std::hash` supports
/// variants.
using ShortcutOwner = std::variant<SnapAction, Uuid>;

/// Decides whether a shortcut may be assigned, and explains why not.
struct ShortcutRules {
  struct ReservedBySystem {
    std::string label;  ///< what the system uses the shortcut for
    bool operator==(const ReservedBySystem&) const = default;
  };
  struct UsedBy {
    std::string name;  ///< title of the action or name of the area
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
  /// Combinations used by the system or by most applications.
  [[nodiscard]] static std::span<const Reserved> reserved();

  /// The reason why the shortcut cannot be assigned to this owner, if any. The shortcut that the owner
  /// already has is no conflict.
  [[nodiscard]] static std::optional<Problem> problem(const HotKeySpec& with, const ShortcutOwner& owner,
                                                      const TilwinSettings& in);
  [[nodiscard]] static std::optional<Problem> problem(const HotKeySpec& with, SnapAction action,
                                                      const TilwinSettings& in);
  /// If several owners have the same shortcut, as in a file edited by hand, it triggers the first of them, in
  /// the order of `TilwinSettings::shortcutsInForce`. For the others, this tells whose it is.
  [[nodiscard]] static std::optional<UsedBy> usedEarlier(const ShortcutOwner& owner,
                                                         const TilwinSettings& in);
  /// The explanation shown to the user.
  [[nodiscard]] static std::string message(const Problem& problem, const Wording& wording = {});
};

}  // namespace tilwin
