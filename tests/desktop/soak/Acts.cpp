#include "tests/desktop/soak/Acts.h"

#include <algorithm>
#include <array>

namespace tilwin::desktop::soak {

namespace {

constexpr std::size_t fewestWindows = 2;
constexpr std::size_t mostWindows = 6;

bool always(const Model&) { return true; }
bool hasRoom(const Model& model) { return model.windows.size() < mostWindows; }
bool hasEnough(const Model& model) { return model.windows.size() > fewestWindows; }
bool hasNormal(const Model& model) { return std::ranges::any_of(model.windows, &ModelWindow::isNormal); }
bool hasFilling(const Model& model) { return !std::ranges::all_of(model.windows, &ModelWindow::isNormal); }
bool hasDraggable(const Model& model) {
  return std::ranges::any_of(model.windows, [&](const auto& each) { return model.isWithinReach(each); });
}
bool hasTitleBar(const Model& model) {
  return std::ranges::any_of(model.windows,
                             [&](const auto& each) { return model.isWithinReach(each) && each.hasTitleBar; });
}

constexpr std::array table = std::to_array<Act>({
    {"press", 30, always, pressOnce},
    {"press the same again", 8, always, pressTheSameAgain},
    {"press in haste", 10, always, pressInHaste},
    {"restore", 10, always, pressRestore},
    {"drag to a zone", 12, hasDraggable, dragToAZone},
    {"throw to a zone", 6, hasDraggable, throwToAZone},
    {"drag in the open", 4, hasDraggable, dragInTheOpen},
    {"call a drag off", 3, hasTitleBar, callADragOff},
    {"open a window", 6, hasRoom, openAWindow},
    {"close a window", 3, hasEnough, closeAWindow},
    {"close a window being snapped", 2, hasEnough, closeAWindowBeingSnapped},
    {"place a window by hand", 6, hasNormal, placeAWindow},
    {"maximise or fill the screen", 4, hasNormal, fillTheScreen},
    {"leave that state", 3, hasFilling, fillTheScreenNoMore},
    {"plug and unplug displays", 3, always, plugAndUnplug},
    {"show or end a panel", 2, always, toggleThePanel},
    {"restart the manager", 1, always, restartTheManager},
    {"replace the manager", 2, always, replaceTheManager},
    {"press without a manager", 1, always, pressWithoutAManager},
    {"restart the program", 2, always, restartTheProgram},
});

}  // namespace

std::span<const Act> acts() { return table; }

const Act& choose(const Model& model, Dice& dice) {
  const auto weightOf = [&](const Act& act) { return act.isPossible(model) ? act.weight : 0; };
  int all = 0;
  for (const Act& act : table) all += weightOf(act);
  int left = dice.between(0, all - 1);
  return *std::ranges::find_if(table, [&](const Act& act) { return (left -= weightOf(act)) < 0; });
}

}  // namespace tilwin::desktop::soak
