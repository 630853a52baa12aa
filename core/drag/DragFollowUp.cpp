#include "core/drag/DragFollowUp.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tilwin {
namespace {

struct Row {
  DragFollowUp followUp;
  std::string_view rawValue;
  DragFollowUps::Lesson lesson;
};

/// Doing nothing is weak evidence: perhaps the user just did not bother to correct the window.
constexpr std::array table = std::to_array<Row>({
    {DragFollowUp::restoredOrMovedAway, "restoredOrMovedAway", {.snap = false, .weight = 1.0}},
    {DragFollowUp::keptSnap, "keptSnap", {.snap = true, .weight = 0.4}},
    {DragFollowUp::draggedBackToSameEdge, "draggedBackToSameEdge", {.snap = true, .weight = 1.0}},
    {DragFollowUp::leftAlone, "leftAlone", {.snap = false, .weight = 0.25}},
});

constexpr auto followUps = [] {
  std::array<DragFollowUp, table.size()> result{};
  std::transform(table.begin(), table.end(), result.begin(), [](const Row& row) { return row.followUp; });
  return result;
}();

static_assert(
    [] {
      for (std::size_t index = 0; index < table.size(); ++index) {
        if (static_cast<std::size_t>(table[index].followUp) != index) return false;
      }
      return true;
    }(),
    "rows are found by their index");

const Row& rowOf(DragFollowUp followUp) { return table[static_cast<std::size_t>(followUp)]; }

}  // namespace

std::span<const DragFollowUp> DragFollowUps::all() { return followUps; }

std::string_view DragFollowUps::rawValue(DragFollowUp followUp) { return rowOf(followUp).rawValue; }

std::optional<DragFollowUp> DragFollowUps::fromRawValue(std::string_view rawValue) {
  const auto* const found =
      std::find_if(table.begin(), table.end(), [&](const Row& row) { return row.rawValue == rawValue; });
  return found == table.end() ? std::nullopt : std::optional(found->followUp);
}

DragFollowUps::Lesson DragFollowUps::lesson(DragFollowUp followUp) { return rowOf(followUp).lesson; }

}  // namespace tilwin
