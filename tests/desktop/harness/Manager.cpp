#include "tests/desktop/harness/Manager.h"

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

constexpr std::array<ManagerTraits, 4> managers{{
    // manager, name, program, argument, composites by default, can composite, move modifier, configure
    {Manager::openbox, "openbox", "openbox", "--sm-disable", false, false, "Alt", configureOpenbox},
    {Manager::xfwm4, "xfwm4", "xfwm4", "--sm-client-disable", true, true, "Alt", configureXfwm4},
    {Manager::metacity, "metacity", "metacity", "--sm-disable", true, true, "Alt", configureMetacity},
    // It could composite, and is kept from it: without a graphics card that takes a processor for itself.
    {Manager::kwin, "kwin", "kwin_x11", "--no-kactivities", false, false, "Super", configureKwin},
}};

}  // namespace

const ManagerTraits& traits(Manager manager) {
  for (const auto& row : managers) {
    if (row.manager == manager) return row;
  }
  throw HarnessError("no such manager");
}

std::optional<Manager> managerNamed(std::string_view name) {
  for (const auto& row : managers) {
    if (row.name == name) return row.manager;
  }
  return std::nullopt;
}

}  // namespace tilwin::desktop
