#pragma once

#include "tests/desktop/harness/Manager.h"

namespace tilwin::desktop {

/// Each writes one manager's own settings files into the home, as ManagerSetup describes.
void configureOpenbox(const PrivateHome& home, const ManagerSetup& setup);
void configureXfwm4(const PrivateHome& home, const ManagerSetup& setup);
void configureMetacity(const PrivateHome& home, const ManagerSetup& setup);
void configureKwin(const PrivateHome& home, const ManagerSetup& setup);

}  // namespace tilwin::desktop
