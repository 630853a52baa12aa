#include "tests/desktop/harness/TestWindow.h"

#include <unistd.h>
#include <xcb/xcb_icccm.h>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

struct KindName {
  WindowKind kind;
  const char* atom;
};

constexpr std::array<KindName, 7> kindNames{{
    {WindowKind::normal, "_NET_WM_WINDOW_TYPE_NORMAL"},
    {WindowKind::dialog, "_NET_WM_WINDOW_TYPE_DIALOG"},
    {WindowKind::dock, "_NET_WM_WINDOW_TYPE_DOCK"},
    {WindowKind::desktop, "_NET_WM_WINDOW_TYPE_DESKTOP"},
    {WindowKind::utility, "_NET_WM_WINDOW_TYPE_UTILITY"},
    {WindowKind::splash, "_NET_WM_WINDOW_TYPE_SPLASH"},
    {WindowKind::notification, "_NET_WM_WINDOW_TYPE_NOTIFICATION"},
}};

const char* atomOf(WindowKind kind) {
  for (const auto& row : kindNames) {
    if (row.kind == kind) return row.atom;
  }
  throw HarnessError("no such kind of window");
}

/// Writes the properties of one window.
class Properties {
public:
  Properties(XConnection& connection, WindowId window) : connection_(connection), window_(window) {}

  void numbers(const char* name, const char* type, const std::vector<std::uint32_t>& values) {
    change(name, type, 32, values.size(), values.data());
  }
  void text(const char* name, const char* type, const std::string& value) {
    change(name, type, 8, value.size(), value.data());
  }

private:
  void change(const char* name, const char* type, std::uint8_t format, std::size_t count, const void* data) {
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window_, connection_.atom(name),
                        connection_.atom(type), format, static_cast<std::uint32_t>(count), data);
  }

  XConnection& connection_;
  WindowId window_;
};

std::uint32_t unsignedOf(int value) { return static_cast<std::uint32_t>(value); }

std::vector<std::uint32_t> numbersOf(const Extents& extents) {
  return {unsignedOf(extents.left), unsignedOf(extents.right), unsignedOf(extents.top),
          unsignedOf(extents.bottom)};
}

WindowId createWindow(XConnection& connection, const TestWindowOptions& options) {
  const WindowId window = xcb_generate_id(connection.get());
  const std::array<std::uint32_t, 3> values{options.colour, options.overrideRedirect ? 1U : 0U,
                                            XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE |
                                                XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_KEY_PRESS |
                                                XCB_EVENT_MASK_BUTTON_PRESS};
  xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(),
                    static_cast<std::int16_t>(options.area.x), static_cast<std::int16_t>(options.area.y),
                    static_cast<std::uint16_t>(options.area.width),
                    static_cast<std::uint16_t>(options.area.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                    XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
                    values.data());
  return window;
}

void setSizeHints(XConnection& connection, WindowId window, const TestWindowOptions& options) {
  const PixelSize size{static_cast<int>(options.area.width), static_cast<int>(options.area.height)};
  const PixelSize minimum = options.fixedSize ? size : options.minimum;
  const PixelSize maximum = options.fixedSize ? size : options.maximum;
  const auto given = [](PixelSize value) { return value != PixelSize{}; };
  xcb_size_hints_t hints{};
  if (options.placed) {
    xcb_icccm_size_hints_set_position(&hints, 1, static_cast<int>(options.area.x),
                                      static_cast<int>(options.area.y));
  }
  xcb_icccm_size_hints_set_size(&hints, 0, size.width, size.height);
  if (given(minimum)) xcb_icccm_size_hints_set_min_size(&hints, minimum.width, minimum.height);
  if (given(maximum)) xcb_icccm_size_hints_set_max_size(&hints, maximum.width, maximum.height);
  if (given(options.increment)) {
    xcb_icccm_size_hints_set_resize_inc(&hints, options.increment.width, options.increment.height);
  }
  if (given(options.base))
    xcb_icccm_size_hints_set_base_size(&hints, options.base.width, options.base.height);
  if (given(options.aspect)) {
    xcb_icccm_size_hints_set_aspect(&hints, options.aspect.width, options.aspect.height, options.aspect.width,
                                    options.aspect.height);
  }
  xcb_icccm_size_hints_set_win_gravity(&hints, options.gravity);
  xcb_icccm_set_wm_normal_hints(connection.get(), window, &hints);
}

void setProtocols(XConnection& connection, Properties& properties, const TestWindowOptions& options) {
  std::vector<std::uint32_t> protocols{connection.atom("_NET_WM_PING")};
  if (options.acceptsDelete) protocols.push_back(connection.atom("WM_DELETE_WINDOW"));
  properties.numbers("WM_PROTOCOLS", "ATOM", protocols);
  // EWMH: a process id says nothing without the machine it is of.
  std::array<char, 256> host{};
  gethostname(host.data(), host.size() - 1);
  properties.text("WM_CLIENT_MACHINE", "STRING", host.data());
  properties.numbers("_NET_WM_PID", "CARDINAL",
                     {static_cast<std::uint32_t>(options.process.value_or(getpid()))});
}

void setDecorations(Properties& properties, const TestWindowOptions& options) {
  constexpr std::uint32_t decorationsGiven = 1U << 1;
  if (options.undecorated)
    properties.numbers("_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {decorationsGiven, 0, 0, 0, 0});
  if (options.shadow != Extents{})
    properties.numbers("_GTK_FRAME_EXTENTS", "CARDINAL", numbersOf(options.shadow));
  if (options.strut == Extents{}) return;
  auto strut = numbersOf(options.strut);
  properties.numbers("_NET_WM_STRUT", "CARDINAL", strut);
  for (const int end : options.strutSpans) strut.push_back(unsignedOf(end));
  properties.numbers("_NET_WM_STRUT_PARTIAL", "CARDINAL", strut);
}

void setIdentity(XConnection& connection, Properties& properties, const TestWindowOptions& options) {
  properties.text("WM_CLASS", "STRING",
                  options.instance + std::string(1, '\0') + options.className + std::string(1, '\0'));
  properties.numbers("_NET_WM_WINDOW_TYPE", "ATOM", {connection.atom(atomOf(options.kind))});
  if (options.transientFor != 0) properties.numbers("WM_TRANSIENT_FOR", "WINDOW", {options.transientFor});
  if (!options.gtkApplicationId.empty()) {
    properties.text("_GTK_APPLICATION_ID", "UTF8_STRING", options.gtkApplicationId);
  }
  if (!options.kdeDesktopFile.empty()) {
    properties.text("_KDE_NET_WM_DESKTOP_FILE", "UTF8_STRING", options.kdeDesktopFile);
  }
}

}  // namespace

void setWindowTitle(XConnection& connection, WindowId window, const std::string& title) {
  Properties properties(connection, window);
  properties.text("WM_NAME", "STRING", title);
  properties.text("_NET_WM_NAME", "UTF8_STRING", title);
}

WindowId makeWindow(XConnection& connection, const TestWindowOptions& options) {
  const WindowId window = createWindow(connection, options);
  Properties properties(connection, window);
  setWindowTitle(connection, window, options.title);
  setIdentity(connection, properties, options);
  setSizeHints(connection, window, options);
  setProtocols(connection, properties, options);
  setDecorations(properties, options);
  return window;
}

}  // namespace tilwin::desktop
