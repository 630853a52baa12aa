#pragma once

#include <vector>

#include "tests/desktop/tour/Album.h"
#include "tests/desktop/tour/Arguments.h"
#include "tests/desktop/tour/Scene.h"

namespace tilwin::desktop {

/// A display is unplugged and plugged in again, and the windows return to their places on it. Prints why if
/// this machine cannot plug displays.
void playDisplays(const TourArguments& arguments, std::vector<Scene>& scenes, Album& album);

}  // namespace tilwin::desktop
