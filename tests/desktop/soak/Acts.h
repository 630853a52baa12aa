#pragma once

#include <span>

#include "tests/desktop/soak/Dice.h"
#include "tests/desktop/soak/SoakDesktop.h"

namespace tilwin::desktop::soak {

/// One thing that happens to a desktop: a row of the table.
struct Act {
  const char* name;
  int weight;  ///< how often it is chosen, in relation to the others
  bool (*isPossible)(const Model& model);
  /// Does it, tells the model, and settles.
  void (*perform)(SoakDesktop& desktop, Dice& dice);
};

[[nodiscard]] std::span<const Act> acts();
/// An act that is possible, by the weights.
[[nodiscard]] const Act& choose(const Model& model, Dice& dice);

// Each function is the act of a row.

void pressOnce(SoakDesktop& desktop, Dice& dice);
void pressTheSameAgain(SoakDesktop& desktop, Dice& dice);
void pressInHaste(SoakDesktop& desktop, Dice& dice);
void pressRestore(SoakDesktop& desktop, Dice& dice);

void dragToAZone(SoakDesktop& desktop, Dice& dice);
void throwToAZone(SoakDesktop& desktop, Dice& dice);
void dragInTheOpen(SoakDesktop& desktop, Dice& dice);
void callADragOff(SoakDesktop& desktop, Dice& dice);

void openAWindow(SoakDesktop& desktop, Dice& dice);
void closeAWindow(SoakDesktop& desktop, Dice& dice);
void closeAWindowBeingSnapped(SoakDesktop& desktop, Dice& dice);
void placeAWindow(SoakDesktop& desktop, Dice& dice);
void fillTheScreen(SoakDesktop& desktop, Dice& dice);
void fillTheScreenNoMore(SoakDesktop& desktop, Dice& dice);

void plugAndUnplug(SoakDesktop& desktop, Dice& dice);
void toggleThePanel(SoakDesktop& desktop, Dice& dice);
void restartTheManager(SoakDesktop& desktop, Dice& dice);
void replaceTheManager(SoakDesktop& desktop, Dice& dice);
void pressWithoutAManager(SoakDesktop& desktop, Dice& dice);
void restartTheProgram(SoakDesktop& desktop, Dice& dice);

}  // namespace tilwin::desktop::soak
