#include "tests/desktop/harness/Manager.h"

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

using enum Placing;

constexpr std::array<ManagerTraits, 13> managers{{
    // manager, name, program, argument, composites by default, can composite, move modifier, has title bars,
    // how it places, runs a script, configure
    {Manager::openbox, "openbox", "openbox", "--sm-disable", false, false, "Alt", true, frameByMessage, false,
     configureOpenbox},
    {Manager::xfwm4, "xfwm4", "xfwm4", "--sm-client-disable", true, true, "Alt", true, frameByMessage, false,
     configureXfwm4},
    {Manager::metacity, "metacity", "metacity", "--sm-disable", true, true, "Alt", true, frameByMessage,
     false, configureMetacity},
    // It could composite, and is kept from it: without a graphics card that takes a processor for itself.
    {Manager::kwin, "kwin", "kwin_x11", "--no-kactivities", false, false, "Super", true, frameByMessage,
     false, configureKwin},
    {Manager::icewm, "icewm", "icewm", nullptr, false, false, "Alt", true, frameByMessage, false,
     configureIcewm},
    {Manager::fluxbox, "fluxbox", "fluxbox", "-no-slit", false, false, "Alt", true, frameByMessage, false,
     configureFluxbox},
    {Manager::jwm, "jwm", "jwm", nullptr, false, false, "Alt", true, frameByMessage, false, configureJwm},
    {Manager::marco, "marco", "marco", "--sm-disable", false, false, "Alt", true, frameByMessage, false,
     configureMarco},
    {Manager::i3, "i3", "i3", "-a", false, false, "Alt", true, clientByMessage, false, configureI3},
    {Manager::herbstluftwm, "herbstluftwm", "herbstluftwm", nullptr, false, false, "Alt", true,
     clientByRequest, true, configureHerbstluftwm},
    {Manager::windowmaker, "windowmaker", "wmaker", "--for-real", false, false, "Alt", true, frameByRequest,
     true, configureWindowMaker},
    {Manager::awesome, "awesome", "awesome", nullptr, false, false, "Alt", true, frameByRequest, false,
     configureAwesome},
    {Manager::bspwm, "bspwm", "bspwm", nullptr, false, false, "Alt", false, frameByRequest, true,
     configureBspwm},
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

std::string managerNames() {
  std::string names;
  for (const auto& row : managers) names += (names.empty() ? "" : "|") + std::string(row.name);
  return names;
}

}  // namespace tilwin::desktop
