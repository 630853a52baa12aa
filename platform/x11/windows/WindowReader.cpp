#include "platform/x11/windows/WindowReader.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

#include "platform/x11/windows/MeasuredDecoration.h"

namespace tilwin::x11 {

namespace {

bool holds(const std::vector<std::uint32_t>& numbers, xcb_atom_t atom) {
  return std::ranges::find(numbers, atom) != numbers.end();
}

/// Text properties may end in a zero byte that is not part of the text.
std::string untilZero(const std::string& text) { return text.substr(0, text.find('\0')); }

/// WM_CLASS is the instance and the class, each ended by a zero byte. Source: ICCCM, 4.1.2.5.
std::string classOf(const std::string& property) {
  const auto instanceEnd = property.find('\0');
  return instanceEnd == std::string::npos ? std::string() : untilZero(property.substr(instanceEnd + 1));
}

xcb_window_t movable(const X11Connection& x, std::optional<std::uint32_t> window) {
  constexpr xcb_window_t none = XCB_WINDOW_NONE;
  return !window || *window == x.root() || x.created(*window) ? none : *window;
}

/// All requests about one window. The replies are collected only after the requests for all windows were
/// sent.
class Questions {
public:
  Questions(const X11Connection& x, xcb_window_t window)
      : x_(x),
        window_(window),
        place_(x, window),
        state_(ask(Atom::netWmState)),
        type_(ask(Atom::netWmWindowType)),
        process_(ask(Atom::netWmPid)),
        name_(askText(x.atom(Atom::netWmName))),
        gtkApplication_(askText(x.atom(Atom::gtkApplicationId))),
        kdeDesktopFile_(askText(x.atom(Atom::kdeNetWmDesktopFile))),
        class_(askText(XCB_ATOM_WM_CLASS)),
        plainName_(askText(XCB_ATOM_WM_NAME)),
        transientFor_(x.get(), window, XCB_ATOM_WM_TRANSIENT_FOR),
        sizeHints_(x.get(), window, XCB_ATOM_WM_NORMAL_HINTS) {}

  std::optional<WindowSnapshot> answers() {
    WindowSnapshot result;
    if (!place_.answer(result.client, result.shape)) return std::nullopt;
    result.window = window_;
    result.process = process_.number().value_or(0);
    readState(result);
    readType(result);
    readNames(result);
    result.limits = SizeLimits::fromHints(sizeHints_.numbers());
    return result;
  }

private:
  PropertyRequest ask(Atom property) const { return {x_.get(), window_, x_.atom(property)}; }
  PropertyRequest askText(xcb_atom_t property) const {
    return {x_.get(), window_, property, PropertyRequest::longestText};
  }

  void readState(WindowSnapshot& into) {
    const auto state = state_.numbers();
    into.states = {.maximizedHorz = holds(state, x_.atom(Atom::netWmStateMaximizedHorz)),
                   .maximizedVert = holds(state, x_.atom(Atom::netWmStateMaximizedVert)),
                   .fullScreen = holds(state, x_.atom(Atom::netWmStateFullscreen))};
    into.hidden = holds(state, x_.atom(Atom::netWmStateHidden));
  }

  void readType(WindowSnapshot& into) {
    const auto types = type_.numbers();
    const bool transient = transientFor_.number().value_or(XCB_WINDOW_NONE) != XCB_WINDOW_NONE;
    into.standard = types.empty() ? !transient : holds(types, x_.atom(Atom::netWmWindowTypeNormal));
    into.furniture = holds(types, x_.atom(Atom::netWmWindowTypeDock)) ||
                     holds(types, x_.atom(Atom::netWmWindowTypeDesktop));
  }

  void readNames(WindowSnapshot& into) {
    into.windowClass = classOf(class_.text());
    into.application = untilZero(gtkApplication_.text());
    if (into.application.empty()) into.application = untilZero(kdeDesktopFile_.text());
    if (into.application.empty()) into.application = into.windowClass;
    into.title = untilZero(name_.text());
    if (into.title.empty()) into.title = untilZero(plainName_.text());
  }

  const X11Connection& x_;
  xcb_window_t window_;
  PlaceQuestions place_;
  PropertyRequest state_;
  PropertyRequest type_;
  PropertyRequest process_;
  PropertyRequest name_;
  PropertyRequest gtkApplication_;
  PropertyRequest kdeDesktopFile_;
  PropertyRequest class_;
  PropertyRequest plainName_;
  PropertyRequest transientFor_;
  PropertyRequest sizeHints_;
};

}  // namespace

PlaceQuestions::PlaceQuestions(const X11Connection& x, xcb_window_t window)
    : x_(&x),
      window_(window),
      geometry_(x.get(), xcb_get_geometry(x.get(), window)),
      origin_(x.get(), xcb_translate_coordinates(x.get(), window, x.root(), 0, 0)),
      frameExtents_(x.get(), window, x.atom(Atom::netFrameExtents)),
      shadow_(x.get(), window, x.atom(Atom::gtkFrameExtents)) {}

bool PlaceQuestions::answer(Rect& client, FrameShape& shape) {
  const auto geometry = geometry_.collect();
  const auto origin = origin_.collect();
  if (!geometry || !origin) return false;
  client = {static_cast<double>(origin->dst_x), static_cast<double>(origin->dst_y),
            static_cast<double>(geometry->width), static_cast<double>(geometry->height)};
  const auto told = frameExtents_.numbers();
  // A manager that does not use the property leaves in it what the one before wrote there.
  const bool isTold = !told.empty() && x_->managerSupports(Atom::netFrameExtents);
  shape.decoration = isTold ? Margins::fromProperty(told) : measuredDecoration(*x_, window_);
  shape.clientBorder = isTold ? 0 : geometry->border_width;
  shape.shadow = Margins::fromProperty(shadow_.numbers());
  return true;
}

std::optional<Rect> PlaceQuestions::frame() {
  Rect client;
  FrameShape shape;
  return answer(client, shape) ? std::optional(shape.frameOfClient(client)) : std::nullopt;
}

bool isOwn(const WindowSnapshot& snapshot) {
  return snapshot.process == static_cast<std::uint32_t>(getpid());
}

std::vector<WindowSnapshot> readWindows(const X11Connection& x, std::span<const xcb_window_t> windows) {
  std::vector<Questions> asked;
  asked.reserve(windows.size());
  for (const auto window : windows) asked.emplace_back(x, window);
  std::vector<WindowSnapshot> result;
  result.reserve(windows.size());
  for (auto& questions : asked) {
    if (auto snapshot = questions.answers()) result.push_back(std::move(*snapshot));
  }
  return result;
}

xcb_window_t readActiveNumber(const X11Connection& x) {
  return movable(x, PropertyRequest(x.get(), x.root(), x.atom(Atom::netActiveWindow)).number());
}

std::optional<WindowSnapshot> readActiveWindow(const X11Connection& x, xcb_window_t expected) {
  PropertyRequest active(x.get(), x.root(), x.atom(Atom::netActiveWindow));
  std::optional<Questions> guess;
  if (expected != XCB_WINDOW_NONE) guess.emplace(x, expected);
  const auto window = movable(x, active.number());
  if (window == XCB_WINDOW_NONE) return std::nullopt;
  return window == expected ? guess->answers() : Questions(x, window).answers();
}

}  // namespace tilwin::x11
