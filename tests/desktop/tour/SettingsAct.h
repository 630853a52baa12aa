#pragma once

#include <string>

#include "tests/desktop/tour/Album.h"
#include "tests/desktop/tour/Arguments.h"

namespace tilwin::desktop {

/// Opens the settings window of the running program by starting it a second time, goes through its sections,
/// and closes it. `look` ends the names of the pictures.
void playSettings(Session& session, const TourArguments& arguments, Album& album, const std::string& look);

}  // namespace tilwin::desktop
