#include "core/snap/DragZone.h"

#include <array>

namespace tilwin {
namespace {

/// Points beyond the left and top edge that still count as on the display.
constexpr double slack = 1;

/// From the pointer to each edge of the display, in points.
struct Distances {
  double left;
  double right;
  double top;
  double bottom;
};

struct Corner {
  double Distances::*horizontal;
  double Distances::*vertical;
  SnapAction action;
};

struct Edge {
  double Distances::*distance;
  SnapAction action;
};

// The first match counts.
constexpr std::array corners{
    Corner{&Distances::left, &Distances::top, SnapAction::topLeft},
    Corner{&Distances::right, &Distances::top, SnapAction::topRight},
    Corner{&Distances::left, &Distances::bottom, SnapAction::bottomLeft},
    Corner{&Distances::right, &Distances::bottom, SnapAction::bottomRight},
};
constexpr std::array edges{
    Edge{&Distances::top, SnapAction::maximize},
    Edge{&Distances::left, SnapAction::leftHalf},
    Edge{&Distances::right, SnapAction::rightHalf},
    Edge{&Distances::bottom, SnapAction::bottomHalf},
};

bool isOn(Point at, const Rect& frame) {
  return frame.x - slack <= at.x && at.x <= frame.maxX() && frame.y - slack <= at.y && at.y <= frame.maxY();
}

}  // namespace

std::optional<SnapAction> DragZone::action(Point at, const DisplayInfo& on, double edge, double corner) {
  const Rect& frame = on.frame;
  if (!isOn(at, frame)) return std::nullopt;
  const Distances to{at.x - frame.x, frame.maxX() - at.x, at.y - frame.y, frame.maxY() - at.y};
  for (const Corner& each : corners) {
    const double across = to.*each.horizontal;
    const double down = to.*each.vertical;
    if ((across <= corner && down <= edge) || (down <= corner && across <= edge)) return each.action;
  }
  for (const Edge& each : edges) {
    if (to.*each.distance <= edge) return each.action;
  }
  return std::nullopt;
}

}  // namespace tilwin
