#pragma once

#include <array>
#include <string_view>

#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// The vocabulary of `PhraseParser`, in lower case.
struct PhraseTable {
  struct Row {
    std::string_view phrase;
    SnapAction action;
  };

  /// The first matching row counts, so longer phrases come before the shorter ones they contain.
  static constexpr std::array phrases = std::to_array<Row>({
      {"left three fourths", SnapAction::leftThreeFourths},
      {"left 3/4", SnapAction::leftThreeFourths},
      {"three fourths left", SnapAction::leftThreeFourths},
      {"right three fourths", SnapAction::rightThreeFourths},
      {"right 3/4", SnapAction::rightThreeFourths},
      {"three fourths right", SnapAction::rightThreeFourths},
      {"first fourth", SnapAction::firstFourth},
      {"second fourth", SnapAction::secondFourth},
      {"third fourth", SnapAction::thirdFourth},
      {"last fourth", SnapAction::lastFourth},
      {"top left", SnapAction::topLeft},
      {"top right", SnapAction::topRight},
      {"bottom left", SnapAction::bottomLeft},
      {"bottom right", SnapAction::bottomRight},
      {"left two thirds", SnapAction::leftTwoThirds},
      {"two thirds left", SnapAction::leftTwoThirds},
      {"left 2/3", SnapAction::leftTwoThirds},
      {"2/3 left", SnapAction::leftTwoThirds},
      {"right two thirds", SnapAction::rightTwoThirds},
      {"two thirds right", SnapAction::rightTwoThirds},
      {"right 2/3", SnapAction::rightTwoThirds},
      {"2/3 right", SnapAction::rightTwoThirds},
      {"left third", SnapAction::leftThird},
      {"third left", SnapAction::leftThird},
      {"center third", SnapAction::centerThird},
      {"middle third", SnapAction::centerThird},
      {"right third", SnapAction::rightThird},
      {"third right", SnapAction::rightThird},
      {"left half", SnapAction::leftHalf},
      {"half left", SnapAction::leftHalf},
      {"right half", SnapAction::rightHalf},
      {"half right", SnapAction::rightHalf},
      {"top half", SnapAction::topHalf},
      {"bottom half", SnapAction::bottomHalf},
      {"full screen", SnapAction::maximize},
      {"fullscreen", SnapAction::maximize},
      {"maximize", SnapAction::maximize},
      {"maximized", SnapAction::maximize},
      {"everything", SnapAction::maximize},
      {"fill", SnapAction::maximize},
      {"left", SnapAction::leftHalf},
      {"right", SnapAction::rightHalf},
      {"top", SnapAction::topHalf},
      {"bottom", SnapAction::bottomHalf},
      {"center", SnapAction::center},
      {"centre", SnapAction::center},
      {"middle", SnapAction::center},
  });

  /// A regular expression (ICU syntax) for what separates clauses, besides the comma.
  static constexpr std::string_view separators = R"(\band\b|\bthen\b|;|\|)";

  /// Words to ignore when reading the application's name.
  static constexpr std::array<std::string_view, 15> fillers{
      "the", "a", "an", "on", "at", "in", "to", "put", "place", "set", "with", "of", "side", "window", "app"};
  /// Ignored like the fillers.
  static constexpr std::string_view verb = "takes";
};

}  // namespace tilwin
