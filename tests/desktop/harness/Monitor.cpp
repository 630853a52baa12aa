#include "tests/desktop/harness/Monitor.h"

#include <xcb/randr.h>

#include <algorithm>

namespace tilwin::desktop {

namespace {

bool overlap(double from, double to, int spanFrom, int spanTo) { return from <= spanTo && spanFrom < to; }

}  // namespace

std::vector<Monitor> monitorsOf(XConnection& connection) {
  xcb_connection_t* xcb = connection.get();
  const XcbPtr<xcb_randr_get_monitors_reply_t> reply(
      xcb_randr_get_monitors_reply(xcb, xcb_randr_get_monitors(xcb, connection.root(), 1), nullptr));
  std::vector<Monitor> monitors;
  if (!reply) return monitors;
  for (auto at = xcb_randr_get_monitors_monitors_iterator(reply.get()); at.rem > 0;
       xcb_randr_monitor_info_next(&at)) {
    const auto& info = *at.data;
    monitors.push_back({.name = connection.atomName(info.name),
                        .frame = Rect{static_cast<double>(info.x), static_cast<double>(info.y),
                                      static_cast<double>(info.width), static_cast<double>(info.height)},
                        .primary = info.primary != 0});
  }
  return monitors;
}

Rect visibleFrame(const Monitor& monitor, const std::vector<Strut>& struts, PixelSize screen) {
  const Rect& frame = monitor.frame;
  double left = frame.x;
  double right = frame.maxX();
  double top = frame.y;
  double bottom = frame.maxY();
  for (const auto& [window, extents, spans] : struts) {
    const bool besideRows = overlap(frame.y, frame.maxY(), spans[0], spans[1]);
    const bool besideRowsRight = overlap(frame.y, frame.maxY(), spans[2], spans[3]);
    const bool besideColumns = overlap(frame.x, frame.maxX(), spans[4], spans[5]);
    const bool besideColumnsBottom = overlap(frame.x, frame.maxX(), spans[6], spans[7]);
    const double rightEdge = screen.width - extents.right;
    const double bottomEdge = screen.height - extents.bottom;
    if (extents.left > 0 && besideRows && extents.left < right) left = std::max<double>(left, extents.left);
    if (extents.right > 0 && besideRowsRight && rightEdge > left) right = std::min(right, rightEdge);
    if (extents.top > 0 && besideColumns && extents.top < bottom) top = std::max<double>(top, extents.top);
    if (extents.bottom > 0 && besideColumnsBottom && bottomEdge > top) bottom = std::min(bottom, bottomEdge);
  }
  return {left, top, right - left, bottom - top};
}

}  // namespace tilwin::desktop
