#include "tests/desktop/harness/TestWindow.h"

#include <algorithm>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

constexpr Milliseconds dockPatience{1000};

}  // namespace

TestWindow::TestWindow(const std::string& display, const TestWindowOptions& options)
    : connection_(display), window_(makeWindow(connection_, options)), recorder_(connection_, window_) {
  // The list of clients is a property of the root; its changes wake the waiting below.
  const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(connection_.get(), connection_.root(), XCB_CW_EVENT_MASK, &mask);
  map();
  waitUntilThere(options.overrideRedirect, options.kind);
}

void TestWindow::waitUntilThere(bool overrideRedirect, WindowKind kind) {
  const auto check = connection_.numbers(connection_.root(), "_NET_SUPPORTING_WM_CHECK");
  const bool managed = !overrideRedirect && !check.empty() &&
                       connection_.numbers(check.front(), "_NET_SUPPORTING_WM_CHECK") == check;
  const auto listed = [&] {
    const auto clients = connection_.numbers(connection_.root(), "_NET_CLIENT_LIST");
    return std::find(clients.begin(), clients.end(), window_) != clients.end();
  };
  const auto viewable = [&] {
    const XcbPtr<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection_.get(), xcb_get_window_attributes(connection_.get(), window_), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
  };
  const auto there = [&] { return viewable() && (!managed || listed()); };
  // Some managers show docks and do not list them.
  const bool came = waitUntil(there, kind == WindowKind::dock ? dockPatience : answerTimeout);
  if (!came && !(kind == WindowKind::dock && viewable())) {
    throw HarnessError("the test window does not come up");
  }
}

bool TestWindow::waitUntil(const Predicate& predicate, Milliseconds timeout) const {
  return recorder_.waitUntil(predicate, timeout);
}

bool TestWindow::settle(Milliseconds quiet, Milliseconds timeout) const {
  return recorder_.waitForQuiet(quiet, timeout);
}

void TestWindow::configure(std::uint16_t mask, std::uint32_t first, std::uint32_t second) {
  const std::array<std::uint32_t, 2> values{first, second};
  xcb_configure_window(connection_.get(), window_, mask, values.data());
  connection_.flush();
}

void TestWindow::moveTo(PixelPoint position) {
  configure(XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, static_cast<std::uint32_t>(position.x),
            static_cast<std::uint32_t>(position.y));
}

void TestWindow::resizeTo(PixelSize size) {
  configure(XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, static_cast<std::uint32_t>(size.width),
            static_cast<std::uint32_t>(size.height));
}

void TestWindow::setTitle(const std::string& title) {
  setWindowTitle(connection_, window_, title);
  connection_.flush();
}

void TestWindow::unmap() {
  // ICCCM 4.1.4: withdrawing takes a synthetic UnmapNotify besides, for windows not mapped at the time.
  xcb_unmap_window(connection_.get(), window_);
  xcb_unmap_notify_event_t event{};
  event.response_type = XCB_UNMAP_NOTIFY;
  event.event = connection_.root();
  event.window = window_;
  xcb_send_event(connection_.get(), 0, connection_.root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
  connection_.flush();
}

void TestWindow::map() {
  xcb_map_window(connection_.get(), window_);
  connection_.flush();
}

void TestWindow::destroy() {
  xcb_destroy_window(connection_.get(), window_);
  connection_.flush();
}

}  // namespace tilwin::desktop
