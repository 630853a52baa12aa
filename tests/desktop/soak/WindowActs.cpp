#include <array>
#include <string>
#include <vector>

#include "tests/desktop/soak/Acts.h"

namespace tilwin::desktop::soak {

namespace {

/// A window takes its new state before its new frame.
constexpr Milliseconds stateChange{300};

ModelWindow& oneThatIs(SoakDesktop& desktop, Dice& dice, bool isNormal) {
  std::vector<ModelWindow*> windows;
  for (auto& window : desktop.model().windows) {
    if (window.isNormal() == isNormal) windows.push_back(&window);
  }
  return *dice.oneOf(windows);
}

}  // namespace

void openAWindow(SoakDesktop& desktop, Dice& dice) {
  auto& window = desktop.open(dice);
  desktop.settle();
  // Managers have views of their own on where a new window goes.
  desktop.placeByHand(window, desktop.someFrame(dice));
  desktop.settle();
}

void closeAWindow(SoakDesktop& desktop, Dice& dice) {
  desktop.close(dice.oneOf(desktop.model().windows));
  desktop.settle();
}

void closeAWindowBeingSnapped(SoakDesktop& desktop, Dice& dice) {
  const auto& window = dice.oneOf(desktop.model().windows);
  desktop.focus(window);
  const auto placing = rules::placing();
  const auto action = dice.oneOf(placing);
  desktop.note(std::string(action) + " and at once");
  desktop.hand().press(rules::chordOf(action));
  desktop.close(window);
  for (auto& other : desktop.model().windows) desktop.model().perhapsPressed(other, action);
  desktop.settle();
  desktop.gather(dice);
}

void placeAWindow(SoakDesktop& desktop, Dice& dice) {
  desktop.placeByHand(oneThatIs(desktop, dice, true), desktop.someFrame(dice));
  desktop.settle();
}

void fillTheScreen(SoakDesktop& desktop, Dice& dice) {
  auto& window = oneThatIs(desktop, dice, true);
  const auto state = dice.oneIn(3) ? State::fullScreen : State::maximized;
  const bool isFull = state == State::fullScreen;
  desktop.note(std::string(isFull ? "fills the screen with " : "maximises ") + window.name);
  Model::leftToManager(window, state);
  if (isFull) {
    desktop.desktop().set(desktop.id(window), WindowState::fullScreen, true);
  } else {
    desktop.desktop().setMaximized(desktop.id(window), true);
  }
  desktop.settle(stateChange);
}

void fillTheScreenNoMore(SoakDesktop& desktop, Dice& dice) {
  auto& window = oneThatIs(desktop, dice, false);
  desktop.note("makes " + window.name + " a normal window");
  Model::leftToManager(window, State::normal);
  desktop.desktop().set(desktop.id(window), WindowState::fullScreen, false);
  desktop.desktop().setMaximized(desktop.id(window), false);
  desktop.settle(stateChange);
  desktop.gather(dice);
}

}  // namespace tilwin::desktop::soak
