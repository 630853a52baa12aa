#include <array>
#include <csignal>
#include <string>

#include "tests/desktop/soak/Acts.h"
#include "tests/desktop/soak/Scenery.h"

namespace tilwin::desktop::soak {

namespace {

constexpr std::array spacings{
    Spacing{},
    Spacing{.outer = 10, .gap = 8},
    Spacing{.outer = 0, .gap = 13},
    Spacing{.outer = 24, .gap = 0, .cycles = false},
};

constexpr std::array endings{SIGTERM, SIGKILL};
constexpr std::array pressedInVain{"leftHalf", "restore", "maximize"};

}  // namespace

void plugAndUnplug(SoakDesktop& desktop, Dice& dice) {
  const auto& displays = dice.oneOf(arrangements());
  std::string names;
  for (const auto& display : displays) names += (names.empty() ? "" : ", ") + display.output;
  desktop.note("has the displays " + names);
  desktop.arrange(displays);
  desktop.gather(dice);
}

void toggleThePanel(SoakDesktop& desktop, Dice& dice) {
  desktop.showPanel(!desktop.hasPanel());
  desktop.gather(dice);
}

void restartTheManager(SoakDesktop& desktop, Dice& dice) {
  desktop.note("restarts the manager");
  desktop.replaceManager(desktop.manager().traits().manager, [] {});
  desktop.gather(dice);
}

void replaceTheManager(SoakDesktop& desktop, Dice& dice) {
  const auto by = dice.oneOf(soakManagers);
  desktop.note(std::string("replaces the manager by ") + traits(by).name);
  desktop.replaceManager(by, [] {});
  desktop.gather(dice);
}

void pressWithoutAManager(SoakDesktop& desktop, Dice& dice) {
  desktop.note("presses without a manager");
  // Nobody can tell which window has the focus then.
  for (auto& window : desktop.model().windows) window.memory.isUnknown = true;
  desktop.replaceManager(desktop.manager().traits().manager, [&] {
    for (const auto* action : pressedInVain) desktop.hand().press(rules::chordOf(action));
  });
  desktop.gather(dice);
}

void restartTheProgram(SoakDesktop& desktop, Dice& dice) {
  const auto& spacing = dice.oneOf(spacings);
  const int signal = dice.oneOf(endings);
  desktop.note(std::string("starts Tilwin again after ") + (signal == SIGKILL ? "killing" : "ending") +
               " it, with margin " + std::to_string(static_cast<int>(spacing.outer)) + ", gap " +
               std::to_string(static_cast<int>(spacing.gap)) + (spacing.cycles ? "" : ", no cycles"));
  desktop.restartTilwin(spacing, signal);
  desktop.settle();
}

}  // namespace tilwin::desktop::soak
