#include "app/actions/ActionGroups.h"

#include <array>

namespace tilwin {
namespace {

using enum SnapAction;

constexpr std::array halves{leftHalf, rightHalf, topHalf, bottomHalf};
constexpr std::array quarters{topLeft, topRight, bottomLeft, bottomRight};
constexpr std::array thirds{leftThird, centerThird, rightThird, leftTwoThirds, rightTwoThirds};
constexpr std::array fourths{firstFourth, secondFourth,     thirdFourth,
                             lastFourth,  leftThreeFourths, rightThreeFourths};
constexpr std::array sixths{topLeftSixth,    topCenterSixth,    topRightSixth,
                            bottomLeftSixth, bottomCenterSixth, bottomRightSixth};
constexpr std::array sizes{maximize, maximizeHeight, maximizeWidth,  almostMaximize,
                           center,   centerLarge,    larger,         smaller,
                           restore,  nextDisplay,    previousDisplay};

constexpr std::array groups = std::to_array<ActionGroup>({
    {"Halves", halves},
    {"Quarters", quarters},
    {"Thirds", thirds},
    {"Fourths (wide screens)", fourths},
    {"Sixths", sixths},
    {"Size and display", sizes},
});

}  // namespace

std::span<const ActionGroup> ActionGroup::all() { return groups; }

}  // namespace tilwin
