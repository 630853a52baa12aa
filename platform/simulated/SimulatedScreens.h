#pragma once

#include "platform/ports/Screens.h"

namespace tilwin {

/// Screens as whoever plays the user connects them.
class SimulatedScreens final : public Screens {
public:
  std::vector<Screen> connected{};

  std::vector<Screen> screens() override { return connected; }
};

}  // namespace tilwin
