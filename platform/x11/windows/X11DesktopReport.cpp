#include "platform/x11/windows/X11DesktopReport.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/x11/wire/ClientList.h"
#include "platform/x11/wire/OfferedByServer.h"
#include "platform/x11/wire/RunningManager.h"

namespace tilwin::x11 {

namespace {

/// What is used of EWMH, if the manager has it.
constexpr std::array usedFeatures{
    Atom::netActiveWindow,         Atom::netClientList,        Atom::netClientListStacking,
    Atom::netCurrentDesktop,       Atom::netFrameExtents,      Atom::netMoveResizeWindow,
    Atom::netWmMoveResize,         Atom::netWmStateFullscreen, Atom::netWmStateMaximizedHorz,
    Atom::netWmStateMaximizedVert, Atom::netWorkarea};

std::string nameOf(Atom atom) { return std::string(atomNames.at(static_cast<std::size_t>(atom))); }

NamedFact extension(std::string_view name, const ServerNeeds::Version& version) {
  return {std::string(name), std::to_string(version.major) + "." + std::to_string(version.minor)};
}

std::vector<NamedFact> serverVersions(const X11Connection& x) {
  const xcb_setup_t* const setup = xcb_get_setup(x.get());
  const std::string vendor(xcb_setup_vendor(setup), static_cast<std::size_t>(xcb_setup_vendor_length(setup)));
  const auto offered = offeredBy(x);
  return {{"X server", vendor + ", release " + std::to_string(setup->release_number)},
          extension("RandR", offered.randr),
          extension("X Input", offered.xinput),
          extension("X Keyboard", offered.xkb),
          extension("Shape", offered.shape)};
}

/// "Xft.dpi:\t192" in the resources.
std::optional<double> textScale(const X11Connection& x) {
  constexpr std::string_view key = "Xft.dpi:";
  constexpr std::uint32_t longestResources = 1U << 14U;
  const std::string resources =
      PropertyRequest(x.get(), x.root(), XCB_ATOM_RESOURCE_MANAGER, longestResources).text();
  const auto at = ("\n" + resources).find("\n" + std::string(key));
  if (at == std::string::npos) return std::nullopt;
  const std::string_view value = std::string_view(resources).substr(at + key.size());
  const auto digits = value.substr(std::min(value.find_first_not_of(" \t"), value.size()));
  int dpi = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), dpi);
  return end.ec == std::errc() && dpi > 0 ? std::optional(dpi / 96.0) : std::nullopt;
}

std::string wayText(const ManagerHabits& habits) {
  return habits.firstWay() == MoveWay::message ? nameOf(Atom::netMoveResizeWindow) : "ConfigureWindow";
}

Sides sidesOf(const Margins& margins) { return {margins.left, margins.right, margins.top, margins.bottom}; }

std::vector<std::string> statesOf(const WindowSnapshot& window) {
  const std::array<std::pair<bool, std::string_view>, 5> states{
      {{window.states.maximizedHorz && window.states.maximizedVert, "maximised"},
       {window.states.maximizedHorz && !window.states.maximizedVert, "maximised horizontally"},
       {window.states.maximizedVert && !window.states.maximizedHorz, "maximised vertically or tiled"},
       {window.states.fullScreen, "full screen"},
       {window.hidden, "minimised"}}};
  std::vector<std::string> result;
  for (const auto& [isSet, name] : states) {
    if (isSet) result.emplace_back(name);
  }
  return result;
}

WindowFacts factsOf(const WindowSnapshot& window) {
  const SizeLimits free;
  const SizeLimits& limits = window.limits;
  WindowFacts facts{.isOwn = isOwn(window),
                    .frame = window.frame(),
                    .decoration = sidesOf(window.shape.decoration),
                    .least = limits.least,
                    .keepsProportions = limits.keepsProportions,
                    .states = statesOf(window),
                    .application = window.application,
                    .title = window.title};
  if (window.shape.shadow != Margins()) facts.shadow = sidesOf(window.shape.shadow);
  if (limits.most != free.most) facts.most = limits.most;
  if (limits.step != free.step) facts.step = limits.step;
  return facts;
}

/// The types of windows that EWMH has. Words that a client makes up would say something of that client.
class WindowKinds {
public:
  explicit WindowKinds(const X11Connection& x) : x_(x) {
    std::vector<Pending<xcb_intern_atom_reply>> asked;
    for (const std::string_view kind : kinds) {
      const std::string name = "_NET_WM_WINDOW_TYPE_" + std::string(kind);
      asked.emplace_back(x.get(),
                         xcb_intern_atom(x.get(), 1, static_cast<std::uint16_t>(name.size()), name.data()));
    }
    std::ranges::transform(asked, atoms_.begin(), [](auto& pending) {
      const auto reply = pending.collect();
      return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    });
  }

  /// By its first type that EWMH has: "normal", "dropdown_menu".
  [[nodiscard]] std::string of(const WindowSnapshot& window) const {
    PropertyRequest types(x_.get(), window.window, x_.atom(Atom::netWmWindowType));
    for (const auto type : types.numbers()) {
      const auto* const atom = std::ranges::find(atoms_, type);
      if (type == XCB_ATOM_NONE || atom == atoms_.end()) continue;
      std::string kind(kinds.at(static_cast<std::size_t>(atom - atoms_.begin())));
      std::ranges::transform(kind, kind.begin(), [](char each) {
        return each == '_' ? each : static_cast<char>(each - 'A' + 'a');
      });
      return kind;
    }
    return window.standard ? "normal" : "dialog";
  }

private:
  static constexpr std::array<std::string_view, 14> kinds{
      "DESKTOP", "DOCK",          "TOOLBAR",    "MENU",    "UTILITY",      "SPLASH", "DIALOG",
      "NORMAL",  "DROPDOWN_MENU", "POPUP_MENU", "TOOLTIP", "NOTIFICATION", "COMBO",  "DND"};

  const X11Connection& x_;
  std::array<xcb_atom_t, kinds.size()> atoms_{};
};

}  // namespace

DesktopFacts X11DesktopReport::facts() {
  const auto& times = windows_.requests().times();
  return {.versions = serverVersions(x_),
          .manager = manager(),
          .windows = windows(),
          .moves = {times.begin(), times.end()},
          .scale = textScale(x_)};
}

ManagerFacts X11DesktopReport::manager() {
  ManagerFacts facts{.runs = windowManagerRuns(x_), .message = nameOf(Atom::netMoveResizeWindow)};
  if (!facts.runs) return facts;
  facts.name =
      PropertyRequest(x_.get(), announcedManager(x_), x_.atom(Atom::netWmName), PropertyRequest::longestText)
          .text();
  facts.name = facts.name.substr(0, facts.name.find('\0'));
  std::ranges::transform(usedFeatures, std::back_inserter(facts.features), [this](Atom feature) {
    return ManagerFacts::Feature{nameOf(feature), x_.managerSupports(feature)};
  });
  const ManagerHabits& habits = windows_.requests().habits();
  using Obeys = ManagerFacts::Obeys;
  facts.obeys = habits.ignoresMessage ? Obeys::no : habits.obeysMessage ? Obeys::yes : Obeys::notTried;
  facts.way = wayText(habits);
  facts.placesClient = habits.placesClient;
  facts.tilesItself = habits.tilesItself;
  facts.refusesWindow = windows_.requests().hasRefused();
  return facts;
}

std::vector<WindowFacts> X11DesktopReport::windows() const {
  const WindowKinds kinds(x_);
  std::vector<WindowFacts> result;
  for (const WindowSnapshot& window : readWindows(x_, managedWindowsFromTheTop(x_))) {
    result.push_back(factsOf(window));
    result.back().kind = kinds.of(window);
  }
  return result;
}

}  // namespace tilwin::x11
