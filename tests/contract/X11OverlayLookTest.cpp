#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

#include "tests/contract/OverlaidDesktop.h"

namespace tilwin::x11 {

namespace {

using desktop::Manager;

constexpr QRgb backgroundColour = OverlaidDesktop::background;
constexpr AccentColour shownAccent = OverlaidDesktop::accent;

class OverlayLook : public ShownOverlay {};

/// What a layer of the accent colour of that opacity makes of a colour below it, by the definition of "over".
QRgb under(double opacity, QRgb below) {
  const auto blend = [&](int accent, int old) {
    return static_cast<int>(std::lround(accent * opacity + old * (1 - opacity)));
  };
  return qRgb(blend(shownAccent.red, qRed(below)), blend(shownAccent.green, qGreen(below)),
              blend(shownAccent.blue, qBlue(below)));
}

/// Where a shadow of that frame would fall, as far as there is screen.
std::vector<Spot> surroundings(const Rect& at) {
  const auto left = static_cast<int>(at.x);
  const auto top = static_cast<int>(at.y);
  const auto right = static_cast<int>(at.maxX()) - 1;
  const auto bottom = static_cast<int>(at.maxY()) - 1;
  std::vector<Spot> spots;
  for (const int gap : {1, 4}) {
    for (const int y : {top - gap, bottom + gap}) spots.push_back({left + 40, y, backgroundColour});
    for (const int x : {left - gap, right + gap}) spots.push_back({x, top + 40, backgroundColour});
  }
  std::erase_if(spots,
                [](const Spot& spot) { return spot.x < 0 || spot.x > 799 || spot.y < 0 || spot.y > 599; });
  return spots;
}

std::vector<Spot> translucentSheet(const Rect& at) {
  const QRgb fill = under(0.22, backgroundColour);
  const QRgb border = under(0.7, fill);
  const auto left = static_cast<int>(at.x);
  const auto top = static_cast<int>(at.y);
  const auto right = static_cast<int>(at.maxX()) - 1;
  const auto bottom = static_cast<int>(at.maxY()) - 1;
  const int middle = (left + right) / 2;
  auto spots = surroundings(at);
  for (const int y : {top + 2, (top + bottom) / 2, bottom - 2}) spots.push_back({middle, y, fill});
  for (const int x : {left + 2, right - 2}) spots.push_back({x, top + 40, fill});
  for (const int y : {top, top + 1, bottom - 1, bottom}) spots.push_back({middle, y, border});
  for (const int x : {left, left + 1, right - 1, right}) spots.push_back({x, top + 40, border});
  // On the diagonal the curve passes 2.9 pixels from the corner's lines, the border's inner edge 4.3.
  for (const bool isRight : {false, true}) {
    for (const bool isBottom : {false, true}) {
      const auto inwards = [&](int pixels, QRgb colour) {
        spots.push_back(
            {isRight ? right - pixels : left + pixels, isBottom ? bottom - pixels : top + pixels, colour});
      };
      inwards(0, backgroundColour);
      inwards(3, border);
      inwards(5, fill);
    }
  }
  return spots;
}

/// Nothing but the border of `sheet`, opaque.
std::vector<Spot> outlinedSheet() {
  const QRgb accent = qRgb(shownAccent.red, shownAccent.green, shownAccent.blue);
  std::vector<Spot> spots{{103, 83, accent}, {496, 376, accent}};
  for (const int y : {80, 81, 378, 379}) spots.push_back({300, y, accent});
  for (const int x : {100, 101, 498, 499}) spots.push_back({x, 200, accent});
  for (const int y : {79, 82, 200, 377, 380}) spots.push_back({300, y, backgroundColour});
  for (const int x : {99, 102, 497, 500}) spots.push_back({x, 200, backgroundColour});
  for (const int x : {100, 499}) spots.push_back({x, 379, backgroundColour});
  return spots;
}

/// Managers that composite by themselves; nothing: picom does, under openbox.
class CompositedOverlay : public OverlayLook, public testing::WithParamInterface<std::optional<Manager>> {};

}  // namespace

TEST_F(OverlayLook, IsARingWithoutACompositor) {
  desk_.overlay().show(sheet);
  desk_.expect(outlinedSheet());
}

TEST_F(OverlayLook, KeepsTheRingOnItsEdgeWhenItsSizeChanges) {
  for (const Rect& before : {Rect{0, 0, 200, 200}, Rect{100, 80, 400, 200}, Rect{100, 80, 200, 300}}) {
    desk_.overlay().show(before);
    desk_.overlay().show(sheet);
    desk_.expect(outlinedSheet());
  }
}

TEST_F(OverlayLook, FitsTheNextShowWhenACompositorHasComeOrGone) {
  desk_.overlay().show(sheet);
  desk_.expect(outlinedSheet());
  desk_.overlay().hide();
  auto compositor = desk_.startCompositor();
  desk_.overlay().show(sheet);
  desk_.expect(translucentSheet(sheet));
  desk_.end(compositor);
  desk_.overlay().show(sheet);
  desk_.expect(outlinedSheet());
}

TEST_P(CompositedOverlay, IsATranslucentSheetWithABorderAndRoundCorners) {
  OverlaidDesktop desk(GetParam().value_or(Manager::openbox), true);
  std::optional<desktop::ChildProcess> compositor;
  if (!GetParam()) compositor = desk.startCompositor();
  desk.overlay().show({0, 0, 200, 200});
  for (const Rect& at : {sheet, Rect{0, 0, 800, 600}, Rect{400, 0, 400, 600}, Rect{400, 0, 400, 300}}) {
    desk.overlay().show(at);
    desk.expect(translucentSheet(at));
  }
  desk.overlay().hide();
  desk.expect({{600, 300, backgroundColour}});
  desk.overlay().show(sheet);
  desk.expect(translucentSheet(sheet));
}

TEST_F(OverlayLook, DrawsItselfAgainWhenItsPictureWasLost) {
  OverlaidDesktop desk(Manager::xfwm4, true);
  const auto window = desk.show(sheet);
  desk.expect(translucentSheet(sheet));
  desk.x().dispatch();
  // A round trip, so that what it drew for the first time comes before the loss.
  const desktop::XcbPtr<xcb_get_input_focus_reply_t> drawn(
      xcb_get_input_focus_reply(desk.x().get(), xcb_get_input_focus(desk.x().get()), nullptr));
  auto& witness = desk.desktop().connection();
  xcb_clear_area(witness.get(), 1, window, 0, 0, 0, 0);
  witness.sync();
  desk.expect({{300, 80, under(0.22, backgroundColour)}});
  desk.x().dispatch();
  desk.expect(translucentSheet(sheet));
}

INSTANTIATE_TEST_SUITE_P(X11, CompositedOverlay,
                         testing::Values(std::nullopt, Manager::xfwm4, Manager::metacity),
                         [](const auto& entry) {
                           return entry.param ? desktop::traits(*entry.param).name : "picom";
                         });

}  // namespace tilwin::x11
