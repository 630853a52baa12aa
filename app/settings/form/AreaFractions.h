#pragma once

#include <array>
#include <string_view>

#include "app/settings/form/FormIds.h"
#include "core/geometry/NormalizedRect.h"

namespace tilwin {

/// One number of an area that the user can set.
struct AreaFraction {
  std::string_view kind;  ///< of the control's id
  std::string_view title;
  double NormalizedRect::*value;
};

inline constexpr std::array areaFractions = std::to_array<AreaFraction>({
    {FormIds::areaX, "Left", &NormalizedRect::x},
    {FormIds::areaY, "Top", &NormalizedRect::y},
    {FormIds::areaWidth, "Width", &NormalizedRect::width},
    {FormIds::areaHeight, "Height", &NormalizedRect::height},
});

}  // namespace tilwin
