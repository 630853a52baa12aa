#include "app/settings/form/Miniatures.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tilwin {
namespace {

/// The height of the display in a miniature of an action: large enough that no window has its minimum size.
constexpr double sampleHeight = 1000;
/// The same for spacing: small, so that a gap of a few points can be seen.
constexpr double spacingHeight = 320;

/// Where the window is before, as fractions of the display.
constexpr NormalizedRect before{0.3, 0.3, 0.4, 0.4};

constexpr NormalizedRect leftScreen{0, 0, 0.48, 1};
constexpr NormalizedRect rightScreen{0.52, 0, 0.48, 1};

struct Moving {
  SnapAction action;
  std::array<FormPicture::Tile, 2> tiles;
};

/// What depends on more than one display, or on the past, drawn as two displays or a window that grows back.
constexpr std::array moving = std::to_array<Moving>({
    {SnapAction::restore, {{{{0, 0, 0.5, 1}, false}, {before, true}}}},
    {SnapAction::nextDisplay, {{{leftScreen, false}, {rightScreen, true}}}},
    {SnapAction::previousDisplay, {{{rightScreen, false}, {leftScreen, true}}}},
});

Rect display(double height, double aspect) { return {0, 0, height * aspect, height}; }

}  // namespace

FormPicture Miniatures::action(SnapAction action, double aspect) {
  FormPicture picture{.label = std::string(SnapActions::title(action)), .aspectRatio = aspect};
  const auto drawn = std::ranges::find(moving, action, &Moving::action);
  if (drawn != moving.end()) {
    picture.tiles.assign(drawn->tiles.begin(), drawn->tiles.end());
    return picture;
  }
  const Rect area = display(sampleHeight, aspect);
  const Rect current = before.rect(area);
  const auto frame = SnapActions::frame(action, current, area, 0, 0);
  if (!SnapActions::region(action)) picture.tiles.push_back({.rect = before});
  if (frame) picture.tiles.push_back({.rect = NormalizedRect::of(*frame, area), .isHighlighted = true});
  return picture;
}

FormPicture Miniatures::spacing(double outer, double gap, double aspect) {
  FormPicture picture{.label = "Preview of the spacing", .aspectRatio = aspect};
  const Rect area = display(spacingHeight, aspect);
  for (const SnapAction quarter : {SnapAction::leftHalf, SnapAction::topRight, SnapAction::bottomRight}) {
    const auto frame = SnapActions::frame(quarter, area, area, outer, gap);
    if (frame) picture.tiles.push_back({.rect = NormalizedRect::of(*frame, area), .isHighlighted = true});
  }
  return picture;
}

FormPicture Miniatures::area(const CustomArea& area, std::string id, double aspect) {
  return {.id = std::move(id),
          .label = "Preview of " + area.name,
          .aspectRatio = aspect,
          .tiles = {{.rect = CustomArea::clamped(area.rect), .isHighlighted = true}}};
}

}  // namespace tilwin
