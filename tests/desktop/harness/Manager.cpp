#include "tests/desktop/harness/Manager.h"

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/ManagerSettings.h"

namespace tilwin::desktop {

namespace {

constexpr std::array<ManagerTraits, 3> managers{{
    // manager, name, arguments, composites by default, can composite, configure
    {Manager::openbox, "openbox", "--sm-disable", false, false, configureOpenbox},
    {Manager::xfwm4, "xfwm4", "--sm-client-disable", true, true, configureXfwm4},
    {Manager::metacity, "metacity", "--sm-disable", true, true, configureMetacity},
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
