#include "platform/x11/overlay/OverlayWindow.h"

#include <xcb/shape.h>

#include <string_view>
#include <vector>

#include "platform/ports/Overlay.h"
#include "platform/x11/overlay/CornerImage.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

constexpr std::uint8_t sheetDepth = 32;
constexpr std::string_view overlayClass{"tilwin\0Tilwin\0", 14};
constexpr std::string_view overlayName{"Tilwin"};

const xcb_screen_t& screenOf(const X11Connection& x) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(x.get()));
  while (screens.data->root != x.root() && screens.rem > 1) xcb_screen_next(&screens);
  return *screens.data;
}

/// The visual whose pixels have alpha, red, green and blue from the highest byte to the lowest; XCB_NONE if
/// the screen has none.
xcb_visualid_t translucentVisual(const xcb_screen_t& screen) {
  for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths)) {
    if (depths.data->depth != sheetDepth) continue;
    for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0;
         xcb_visualtype_next(&visuals)) {
      const auto& visual = *visuals.data;
      if (visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xff0000 &&
          visual.green_mask == 0xff00 && visual.blue_mask == 0xff) {
        return visual.visual_id;
      }
    }
  }
  return XCB_NONE;
}

/// The pixel value of the colour on a screen with any kind of visual. Costs a round trip.
std::uint32_t opaquePixel(const X11Connection& x, const xcb_screen_t& screen, AccentColour colour) {
  const auto wide = [](std::uint8_t channel) { return static_cast<std::uint16_t>(channel * 0x101); };
  const auto reply = Pending<xcb_alloc_color_reply>(
                         x.get(), xcb_alloc_color(x.get(), screen.default_colormap, wide(colour.red),
                                                  wide(colour.green), wide(colour.blue)))
                         .collect();
  return reply ? reply->pixel : screen.white_pixel;
}

xcb_rectangle_t onServer(const PixelRect& rect) {
  return {static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(rect.y),
          static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(rect.height)};
}

template <typename Rects>
std::vector<xcb_rectangle_t> allOnServer(const Rects& rects) {
  std::vector<xcb_rectangle_t> result;
  result.reserve(rects.size());
  for (const auto& rect : rects) result.push_back(onServer(rect));
  return result;
}

}  // namespace

OverlayWindow::OverlayWindow(const X11Connection& x, AccentColour accent, Look look)
    : x_(x), accent_(accent), look_(look), window_(xcb_generate_id(x.get())) {
  const auto& screen = screenOf(x);
  if (look == Look::translucent) sheetVisual_ = translucentVisual(screen);
  create(screen);
  describe();
  xcb_shape_rectangles(x_.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, window_, 0,
                       0, 0, nullptr);
}

OverlayWindow::~OverlayWindow() {
  if (brush_ != XCB_NONE) xcb_free_gc(x_.get(), brush_);
  xcb_destroy_window(x_.get(), window_);
  if (colormap_ != XCB_NONE) xcb_free_colormap(x_.get(), colormap_);
}

/// X11 requires that a window with another depth than its parent sets a border colour and a colour map.
void OverlayWindow::create(const xcb_screen_t& screen) {
  const bool isSheet = sheetVisual_ != XCB_NONE;
  xcb_create_window_value_list_t values{};
  values.override_redirect = 1;
  values.event_mask = isSheet ? XCB_EVENT_MASK_EXPOSURE : XCB_EVENT_MASK_NO_EVENT;
  values.colormap = screen.default_colormap;
  if (isSheet) {
    colormap_ = xcb_generate_id(x_.get());
    xcb_create_colormap(x_.get(), XCB_COLORMAP_ALLOC_NONE, colormap_, screen.root, sheetVisual_);
    values.colormap = colormap_;
  }
  values.background_pixel =
      isSheet ? premultiplied(accent_, OverlayStyle::fillOpacity) : opaquePixel(x_, screen, accent_);
  constexpr std::uint32_t given = XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                                  XCB_CW_EVENT_MASK | XCB_CW_COLORMAP;
  xcb_create_window_aux(x_.get(), isSheet ? sheetDepth : screen.root_depth, window_, screen.root, 0, 0, 1, 1,
                        0, XCB_WINDOW_CLASS_INPUT_OUTPUT, isSheet ? sheetVisual_ : screen.root_visual, given,
                        &values);
  if (!isSheet) return;
  brush_ = xcb_generate_id(x_.get());
  const std::uint32_t border = premultiplied(accent_, borderOverFill);
  xcb_create_gc(x_.get(), brush_, window_, XCB_GC_FOREGROUND, &border);
}

/// Compositors usually draw no shadow or animation for the window type "dnd", the image of something dragged.
/// picom may be configured to draw shadows for all windows; the shadow property turns that off.
void OverlayWindow::describe() const {
  const auto text = [this](xcb_atom_t property, xcb_atom_t type, std::string_view value) {
    xcb_change_property(x_.get(), XCB_PROP_MODE_REPLACE, window_, property, type, 8,
                        static_cast<std::uint32_t>(value.size()), value.data());
  };
  const auto number = [this](Atom property, xcb_atom_t type, std::uint32_t value) {
    xcb_change_property(x_.get(), XCB_PROP_MODE_REPLACE, window_, x_.atom(property), type, 32, 1, &value);
  };
  text(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, overlayClass);
  text(x_.atom(Atom::netWmName), x_.atom(Atom::utf8String), overlayName);
  number(Atom::netWmWindowType, XCB_ATOM_ATOM, x_.atom(Atom::netWmWindowTypeDnd));
  number(Atom::comptonShadow, XCB_ATOM_CARDINAL, 0);
}

RoundedFrame OverlayWindow::frame() const {
  return {at_.width, at_.height, static_cast<int>(OverlayStyle::cornerRadius),
          static_cast<int>(OverlayStyle::borderWidth)};
}

void OverlayWindow::show(const PixelRect& at) {
  const bool isNewSize = at.width != at_.width || at.height != at_.height;
  at_ = at;
  if (isNewSize && sheetVisual_ == XCB_NONE) cutOut();
  xcb_configure_window_value_list_t values{};
  values.x = at.x;
  values.y = at.y;
  values.width = static_cast<std::uint32_t>(at.width);
  values.height = static_cast<std::uint32_t>(at.height);
  values.stack_mode = XCB_STACK_MODE_ABOVE;
  constexpr std::uint16_t given = XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                  XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE;
  xcb_configure_window_aux(x_.get(), window_, given, &values);
  xcb_map_window(x_.get(), window_);
  // The server keeps the content of a window that only moves. For a newly mapped window it sends Expose, but
  // drawing only then would show the first frame without a border.
  if (isNewSize || !isMapped_) draw();
  isMapped_ = true;
}

void OverlayWindow::hide() {
  if (!isMapped_) return;
  xcb_unmap_window(x_.get(), window_);
  isMapped_ = false;
}

void OverlayWindow::cutOut() const {
  const auto rects = allOnServer(frame().ring());
  xcb_shape_rectangles(x_.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED, window_,
                       0, 0, static_cast<std::uint32_t>(rects.size()), rects.data());
}

void OverlayWindow::draw() const {
  if (sheetVisual_ == XCB_NONE) return;
  drawSides(frame());
  drawCorners(frame());
}

void OverlayWindow::drawSides(const RoundedFrame& frame) const {
  const auto rects = allOnServer(frame.sides());
  xcb_poly_fill_rectangle(x_.get(), window_, brush_, static_cast<std::uint32_t>(rects.size()), rects.data());
}

void OverlayWindow::drawCorners(const RoundedFrame& frame) const {
  const auto order = static_cast<xcb_image_order_t>(xcb_get_setup(x_.get())->image_byte_order);
  const int side = frame.cornerSide();
  for (const Corner corner : {Corner{false, false}, {true, false}, {false, true}, {true, true}}) {
    const auto image = cornerImage(frame, accent_, corner, order);
    xcb_put_image(x_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window_, brush_, static_cast<std::uint16_t>(side),
                  static_cast<std::uint16_t>(side),
                  static_cast<std::int16_t>(corner.isRight ? at_.width - side : 0),
                  static_cast<std::int16_t>(corner.isBottom ? at_.height - side : 0), 0, sheetDepth,
                  static_cast<std::uint32_t>(image.size()), image.data());
  }
}

}  // namespace tilwin::x11
