#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tilwin {

/// What the user did with a window after a drag.
enum class DragFollowUp : std::uint8_t {
  restoredOrMovedAway,    ///< undid the snap, or moved away at once
  keptSnap,               ///< let the snap stand
  draggedBackToSameEdge,  ///< did by hand what the drag had not done
  leftAlone,              ///< let the window stand where it was dropped
};

/// What is known of each follow-up.
struct DragFollowUps {
  /// What a drag model is to learn from it.
  struct Lesson {
    bool snap = false;  ///< whether the user wanted the window to snap
    double weight = 0;  ///< how sure that is; 1 for a correction made by hand

    bool operator==(const Lesson&) const = default;
  };

  /// Every follow-up, in declaration order.
  [[nodiscard]] static std::span<const DragFollowUp> all();
  /// The name under which the follow-up is stored: that of its enumeration case.
  [[nodiscard]] static std::string_view rawValue(DragFollowUp followUp);
  [[nodiscard]] static std::optional<DragFollowUp> fromRawValue(std::string_view rawValue);
  [[nodiscard]] static Lesson lesson(DragFollowUp followUp);
};

}  // namespace tilwin
