#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/ResourceUse.h"
#include "tests/desktop/soak/Acts.h"
#include "tests/desktop/soak/Scenery.h"

namespace tilwin::desktop::soak {

namespace {

/// How deep an edge's zone is, and how far a corner's reaches along the edge, in points.
constexpr int edgeDepth = 6;
constexpr int cornerReach = 60;
/// Well away from all zones.
constexpr int openMargin = 100;
constexpr Milliseconds previewTimeout{1000};
/// A throw lasts a few tenths of a second; a program that gets no processor for this long of it may miss it.
constexpr Milliseconds mostWaiting{15};
/// In which the program sees the release and has moved the window.
constexpr Milliseconds afterThrow{60};
/// A hand that throws a window takes a step at least this often, in milliseconds.
constexpr int longestInMotion = 16;

/// Along one axis of a display: at its start, at its end, or somewhere between the corners.
enum class Along { start, middle, end };

struct Zone {
  std::string_view action;
  Along across;
  Along down;
};

constexpr std::array zones = std::to_array<Zone>({
    {"leftHalf", Along::start, Along::middle},
    {"rightHalf", Along::end, Along::middle},
    {"maximize", Along::middle, Along::start},
    {"bottomHalf", Along::middle, Along::end},
    {"topLeft", Along::start, Along::start},
    {"topRight", Along::end, Along::start},
    {"bottomLeft", Along::start, Along::end},
    {"bottomRight", Along::end, Along::end},
});

/// At an edge no deeper than this.
int somewhere(Along along, int deepest, double start, double length, Dice& dice) {
  const int from = static_cast<int>(start);
  const int last = from + static_cast<int>(length) - 1;
  const int depth = dice.between(0, deepest - 1);
  const int between = dice.between(from + cornerReach + 2, last - cornerReach - 2);
  if (along == Along::middle) return between;
  return along == Along::start ? from + depth : last - depth;
}

PixelPoint pointIn(const Zone& zone, const Rect& display, Dice& dice) {
  const bool isCorner = zone.across != Along::middle && zone.down != Along::middle;
  const bool isFarAcross = isCorner && dice.oneIn(2);
  const int x = somewhere(zone.across, isFarAcross ? cornerReach : edgeDepth, display.x, display.width, dice);
  const int deepest = isCorner && !isFarAcross ? cornerReach : edgeDepth;
  return {x, somewhere(zone.down, deepest, display.y, display.height, dice)};
}

/// The window in the hand, by its title bar or with the manager's modifier by any part.
class HeldByHand {
public:
  HeldByHand(SoakDesktop& desktop, const ModelWindow& window) : desktop_(desktop) {
    desktop.bringToFront(window);
    if (!window.hasTitleBar) modifier_ = desktop.manager().traits().moveModifier;
    const Rect& frame = window.now.frame;
    if (modifier_) desktop.hand().keyDown(*modifier_);
    desktop.hand().takeHold(modifier_
                                ? PixelPoint{static_cast<int>(frame.midX()), static_cast<int>(frame.midY())}
                                : desktop.desktop().titleBar(desktop.id(window)));
  }
  HeldByHand(const HeldByHand&) = delete;
  HeldByHand& operator=(const HeldByHand&) = delete;
  ~HeldByHand() {
    desktop_.hand().buttonUp();
    if (modifier_) desktop_.hand().keyUp(*modifier_);
  }

private:
  SoakDesktop& desktop_;
  std::optional<std::string> modifier_;
};

/// What the hand is going to do.
struct Aim {
  Zone zone;
  Display display;
  PixelPoint point;
};

Aim aim(SoakDesktop& desktop, const ModelWindow& window, Dice& dice) {
  const auto display = dice.oneOf(desktop.model().displays);
  const Zone& zone = dice.oneOf(zones);
  const PixelPoint point = pointIn(zone, display.frame, dice);
  desktop.note("drags " + window.name + " to " + std::to_string(point.x) + "," + std::to_string(point.y) +
               ", the zone of " + std::string(zone.action) + " on " + display.output);
  return {zone, display, point};
}

/// How long the program has been ready to run, and another one ran.
Milliseconds waitingTime(SoakDesktop& desktop) {
  const auto use = useOf(desktop.tilwin().process().pid());
  return Milliseconds{use ? use->waitingTime / 1000000 : 0};
}

std::string shown(const std::optional<Rect>& frame) { return frame ? text(*frame) : "none"; }

void requirePreview(SoakDesktop& desktop, const std::optional<Rect>& frame) {
  const auto isShown = [&] { return desktop.preview() == frame; };
  if (desktop.desktop().waitUntil(isShown, previewTimeout)) return;
  throw HarnessError("expected as preview " + shown(frame) + ", saw " + shown(desktop.preview()));
}

void carryTo(SoakDesktop& desktop, const ModelWindow& window, const Aim& to) {
  desktop.hand().comeToRest(to.point);
  const auto& model = desktop.model();
  requirePreview(desktop, rules::frame(to.zone.action, window.now.frame, to.display.area(), model.spacing));
}

ModelWindow& takeOne(SoakDesktop& desktop, Dice& dice, bool isTitleBarNeeded) {
  std::vector<ModelWindow*> windows;
  auto& model = desktop.model();
  for (auto& window : model.windows) {
    if (model.isWithinReach(window) && (window.hasTitleBar || !isTitleBarNeeded)) windows.push_back(&window);
  }
  return *dice.oneOf(windows);
}

}  // namespace

void dragToAZone(SoakDesktop& desktop, Dice& dice) {
  auto& window = takeOne(desktop, dice, false);
  const auto to = aim(desktop, window, dice);
  {
    const HeldByHand held(desktop, window);
    carryTo(desktop, window, to);
  }
  desktop.model().snapped(window, to.zone.action, to.display);
  desktop.settle();
  desktop.gather(dice);
}

void throwToAZone(SoakDesktop& desktop, Dice& dice) {
  auto& window = takeOne(desktop, dice, false);
  const auto to = aim(desktop, window, dice);
  const Milliseconds afterLastStep{dice.between(0, longestInMotion)};
  desktop.note("and lets go " + std::to_string(afterLastStep.count()) + " ms after the last step");
  const auto waitedBefore = waitingTime(desktop);
  {
    const HeldByHand held(desktop, window);
    desktop.hand().glide(to.point, dice.between(15, 25), afterLastStep);
  }
  std::this_thread::sleep_for(afterThrow);
  const auto waited = waitingTime(desktop) - waitedBefore;
  if (waited > mostWaiting) {
    desktop.note("while Tilwin waits " + std::to_string(waited.count()) + " ms for a processor");
    Model::perhapsSnapped(window);
  } else {
    desktop.model().snapped(window, to.zone.action, to.display);
  }
  desktop.settle();
  desktop.gather(dice);
}

void dragInTheOpen(SoakDesktop& desktop, Dice& dice) {
  auto& window = takeOne(desktop, dice, false);
  const Rect before = window.now.frame;
  const Rect room = dice.oneOf(desktop.model().displays).frame.inset(openMargin);
  const PixelPoint point{dice.between(static_cast<int>(room.x), static_cast<int>(room.maxX())),
                         dice.between(static_cast<int>(room.y), static_cast<int>(room.maxY()))};
  desktop.note("drags " + window.name + " to " + std::to_string(point.x) + "," + std::to_string(point.y));
  {
    const HeldByHand held(desktop, window);
    desktop.hand().comeToRest(point);
    requirePreview(desktop, std::nullopt);
  }
  Model::leftToManager(window, State::normal);
  desktop.settle();
  const Rect after = window.now.frame;
  if (after.width != before.width || after.height != before.height) {
    throw HarnessError(window.name + ": was " + text(before) + ", is now " + text(after));
  }
  desktop.gather(dice);
}

void callADragOff(SoakDesktop& desktop, Dice& dice) {
  auto& window = takeOne(desktop, dice, true);
  const auto to = aim(desktop, window, dice);
  desktop.note("and calls it off");
  {
    const HeldByHand held(desktop, window);
    carryTo(desktop, window, to);
    desktop.hand().press("Escape");
    desktop.desktop().waitForFrame(desktop.id(window), window.now.frame);
    requirePreview(desktop, std::nullopt);
  }
  desktop.settle();
}

}  // namespace tilwin::desktop::soak
