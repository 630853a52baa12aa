#include "tests/desktop/harness/Screenshot.h"

#include <algorithm>
#include <cstring>
#include <unordered_set>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

QRect cutToScreen(XConnection& connection, const std::optional<Rect>& area) {
  xcb_connection_t* xcb = connection.get();
  const XcbPtr<xcb_get_geometry_reply_t> root(
      xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, connection.root()), nullptr));
  if (!root) throw HarnessError("the X connection is lost");
  const QRect screen(0, 0, root->width, root->height);
  if (!area) return screen;
  return screen.intersected(QRect(static_cast<int>(area->x), static_cast<int>(area->y),
                                  static_cast<int>(area->width), static_cast<int>(area->height)));
}

}  // namespace

QImage screenshot(XConnection& connection, const std::optional<Rect>& area) {
  xcb_connection_t* xcb = connection.get();
  const QRect part = cutToScreen(connection, area);
  if (part.isEmpty()) throw HarnessError("nothing of that area is on the screen");
  const auto cookie =
      xcb_get_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, connection.root(), static_cast<std::int16_t>(part.x()),
                    static_cast<std::int16_t>(part.y()), static_cast<std::uint16_t>(part.width()),
                    static_cast<std::uint16_t>(part.height()), ~0U);
  const XcbPtr<xcb_get_image_reply_t> reply(xcb_get_image_reply(xcb, cookie, nullptr));
  // Both kinds of server run here at depth 24, in 32 bits a pixel of this machine's byte order.
  QImage image(part.size(), QImage::Format_RGB32);
  const auto bytes = static_cast<std::size_t>(image.sizeInBytes());
  if (!reply || reply->depth != 24 ||
      static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) < bytes) {
    throw HarnessError("the server gives no picture of its screen");
  }
  std::memcpy(image.bits(), xcb_get_image_data(reply.get()), bytes);
  return image;
}

void saveScreenshot(XConnection& connection, const std::filesystem::path& file,
                    const std::optional<Rect>& area) {
  if (!screenshot(connection, area).save(QString::fromStdString(file.string()), "PNG")) {
    throw HarnessError("cannot write " + file.string());
  }
}

ColouredArea areaOf(QRgb colour, const QImage& image) {
  ColouredArea found;
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if ((line[x] | 0xff000000U) != colour) continue;
      found.area |= QRect(x, y, 1, 1);
      ++found.pixels;
    }
  }
  return found;
}

int colourCount(const QImage& image, int limit) {
  std::unordered_set<QRgb> colours;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      colours.insert(image.pixel(x, y));
      if (static_cast<int>(colours.size()) >= limit) return limit;
    }
  }
  return static_cast<int>(colours.size());
}

}  // namespace tilwin::desktop
