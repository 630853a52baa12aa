#include <algorithm>
#include <string_view>
#include <vector>

#include "tests/desktop/soak/Acts.h"

namespace tilwin::desktop::soak {

namespace {

constexpr int mostInHaste = 6;
constexpr int mostOfTheSame = 4;

std::vector<std::string_view> allActions() {
  const auto placing = rules::placing();
  std::vector<std::string_view> actions(placing.begin(), placing.end());
  actions.insert(actions.end(), {"restore", "nextDisplay", "previousDisplay"});
  return actions;
}

/// Those that cycle, and those that change what they find.
constexpr std::array worthRepeating = std::to_array<std::string_view>(
    {"leftHalf", "rightHalf", "leftThird", "rightTwoThirds", "larger", "smaller", "nextDisplay"});

void press(SoakDesktop& desktop, ModelWindow& window, std::string_view action) {
  desktop.note(std::string(action));
  desktop.model().pressed(window, action);
  desktop.hand().press(rules::chordOf(action));
}

ModelWindow& takeAWindow(SoakDesktop& desktop, Dice& dice) {
  auto& window = dice.oneOf(desktop.model().windows);
  desktop.focus(window);
  desktop.note("with " + window.name + " in front");
  return window;
}

}  // namespace

void pressOnce(SoakDesktop& desktop, Dice& dice) {
  auto& window = takeAWindow(desktop, dice);
  const auto actions = allActions();
  press(desktop, window, dice.oneOf(actions));
  desktop.settle();
  desktop.gather(dice);
}

void pressTheSameAgain(SoakDesktop& desktop, Dice& dice) {
  auto& window = takeAWindow(desktop, dice);
  const auto action = dice.oneOf(worthRepeating);
  for (int left = dice.between(2, mostOfTheSame); left > 0; --left) {
    press(desktop, window, action);
    desktop.settle();
    desktop.gather(dice);
  }
}

void pressInHaste(SoakDesktop& desktop, Dice& dice) {
  auto& window = takeAWindow(desktop, dice);
  const auto actions = allActions();
  for (int left = dice.between(2, mostInHaste); left > 0 && window.next.isCertain(); --left) {
    press(desktop, window, dice.oneOf(actions));
  }
  desktop.settle();
  desktop.gather(dice);
}

void pressRestore(SoakDesktop& desktop, Dice& dice) {
  press(desktop, takeAWindow(desktop, dice), "restore");
  desktop.settle();
  desktop.gather(dice);
}

}  // namespace tilwin::desktop::soak
