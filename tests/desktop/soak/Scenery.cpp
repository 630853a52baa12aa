#include "tests/desktop/soak/Scenery.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace tilwin::desktop::soak {

namespace {

const PluggedDisplay laptop{.output = "DUMMY0", .mode = {1440, 900}, .position = {0, 0}, .primary = true};
const PluggedDisplay monitor{.output = "DUMMY1", .mode = {1920, 1080}, .position = {1440, 0}};
const PluggedDisplay beyond{.output = "DUMMY2", .mode = {1280, 1024}, .position = {3360, 0}};

PluggedDisplay at(PixelPoint position, PluggedDisplay display) {
  display.position = position;
  return display;
}

const std::vector<std::vector<PluggedDisplay>> allArrangements{
    {laptop, monitor},
    {laptop},
    {laptop, monitor, beyond},
    {at({1920, 180}, laptop), at({0, 0}, monitor)},
    {at({240, 1080}, laptop), at({0, 0}, monitor)},
};

Display displayFor(const PluggedDisplay& plugged) {
  return {.output = plugged.output,
          .frame = {static_cast<double>(plugged.position.x), static_cast<double>(plugged.position.y),
                    static_cast<double>(plugged.mode.width), static_cast<double>(plugged.mode.height)},
          .isPrimary = plugged.primary};
}

const char* wordFor(State state) {
  constexpr std::array words{"", ", maximised", ", full screen"};
  return words.at(static_cast<std::size_t>(state));
}

}  // namespace

std::span<const std::vector<PluggedDisplay>> arrangements() { return allArrangements; }

std::vector<Display> displaysFor(const std::vector<PluggedDisplay>& plugged) {
  std::vector<Display> displays;
  std::ranges::transform(plugged, std::back_inserter(displays), displayFor);
  return displays;
}

std::string text(const Rect& frame) {
  std::ostringstream out;
  out << frame.width << "×" << frame.height << " at " << frame.x << "," << frame.y;
  return out.str();
}

std::string text(const Standing& standing) { return text(standing.frame) + wordFor(standing.state); }

std::string text(const Expected& expected) {
  std::string said;
  for (const auto& frame : expected.frames) said += (said.empty() ? "" : " or ") + text(frame);
  if (said.empty()) said = "any frame";
  return said + (expected.state ? wordFor(*expected.state) : ", in any state");
}

}  // namespace tilwin::desktop::soak
