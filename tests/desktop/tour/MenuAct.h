#pragma once

#include <vector>

#include "tests/desktop/tour/Album.h"
#include "tests/desktop/tour/Arguments.h"
#include "tests/desktop/tour/Scene.h"

namespace tilwin::desktop {

/// The menu, its prompts and alerts, and the settings window, used with mouse and keyboard under a panel.
/// Windows that the menu moves are scenes.
void playMenuAndSettings(const TourArguments& arguments, std::vector<Scene>& scenes, Album& album);

}  // namespace tilwin::desktop
