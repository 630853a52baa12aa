#pragma once

#include "platform/ports/TemplateImage.h"

namespace tilwin {

/// The program's icon in the menu bar or panel, 18 × 18 points: a display whose left half is filled and whose
/// right half holds two tiles.
[[nodiscard]] TemplateImage menuBarImage();

}  // namespace tilwin
