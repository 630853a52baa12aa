#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tilwin {

/// What the user did with the window in the seconds after a drag.
enum class DragFollowUp : std::uint8_t {
  restoredOrMovedAway,    ///< undid the snap, or dragged the window away
  keptSnap,               ///< left the snapped window as it was
  draggedBackToSameEdge,  ///< made the snap that the drag had not made
  leftAlone,              ///< left the unsnapped window where it was dropped
};

/// The table of follow-ups: stored name, and what the model learns from each.
struct DragFollowUps {
  /// What `DragIntentModel` learns from a follow-up.
  struct Lesson {
    bool snap = false;  ///< whether the user wanted a snap
    double weight = 0;  ///< how certain this is, 0 to 1; 1 if the user made a correction

    bool operator==(const Lesson&) const = default;
  };

  /// Every follow-up, in declaration order.
  [[nodiscard]] static std::span<const DragFollowUp> all();
  /// The name stored in files: that of the enumerator.
  [[nodiscard]] static std::string_view rawValue(DragFollowUp followUp);
  /// Nothing for an unknown name.
  [[nodiscard]] static std::optional<DragFollowUp> fromRawValue(std::string_view rawValue);
  [[nodiscard]] static Lesson lesson(DragFollowUp followUp);
};

}  // namespace tilwin
