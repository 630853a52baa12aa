#include "tests/contract/OverlaidDesktop.h"

#include <cstdlib>

namespace tilwin::x11 {

namespace {

using desktop::WindowId;
using desktop::XcbPtr;

/// Two roundings, of the pixel and of what the compositor makes of it, and one for its idea of 255.
constexpr int roundings = 3;

bool isSameColour(const QColor& first, const QColor& second) {
  return std::abs(first.red() - second.red()) <= roundings &&
         std::abs(first.green() - second.green()) <= roundings &&
         std::abs(first.blue() - second.blue()) <= roundings;
}

}  // namespace

OverlaidDesktop::OverlaidDesktop(desktop::Manager manager, bool compositing)
    : session_({.manager = manager, .setup = {.compositing = compositing}, .screen = screen}) {
  setenv("DISPLAY", session_.server().display().c_str(), 1);
  background_.emplace(session_.server().display(),
                      desktop::TestWindowOptions{.area = {0, 0, screen.width, screen.height},
                                                 .kind = desktop::WindowKind::desktop,
                                                 .undecorated = true,
                                                 .colour = background & 0xffffffU});
  x_.emplace(log_);
  overlay_.emplace(*x_, accent);
}

WindowId OverlaidDesktop::show(const Rect& at) {
  overlay_->show(at);
  const auto isThere = [&] {
    const auto window = sheetWindow();
    return window && desktop().topLevelArea(*window) == at;
  };
  EXPECT_TRUE(desktop().waitUntil(isThere)) << "not shown there";
  return sheetWindow().value_or(0);
}

void OverlaidDesktop::expect(const std::vector<Spot>& spots) {
  desktop().waitUntil([&] { return wrong(spots).empty(); });
  EXPECT_EQ(wrong(spots), "");
}

std::string OverlaidDesktop::wrong(const std::vector<Spot>& spots) {
  const auto image = desktop::screenshot(desktop().connection());
  for (const auto& spot : spots) {
    const QColor seen(image.pixel(spot.x, spot.y));
    if (isSameColour(seen, QColor(spot.colour))) continue;
    return std::to_string(spot.x) + "," + std::to_string(spot.y) + " is " + seen.name().toStdString() +
           ", not " + QColor(spot.colour).name().toStdString();
  }
  return {};
}

int OverlaidDesktop::windows() {
  auto& witness = desktop().connection();
  const XcbPtr<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(witness.get(), xcb_query_tree(witness.get(), witness.root()), nullptr));
  return tree->children_len;
}

std::optional<WindowId> OverlaidDesktop::sheetWindow() {
  for (const auto window : desktop().inView()) {
    if (desktop().wmClass(window).second == "Tilwin") return window;
  }
  return std::nullopt;
}

WindowId OverlaidDesktop::underPointer() {
  auto& witness = desktop().connection();
  const XcbPtr<xcb_query_pointer_reply_t> pointer(
      xcb_query_pointer_reply(witness.get(), xcb_query_pointer(witness.get(), witness.root()), nullptr));
  return pointer->child;
}

desktop::ChildProcess OverlaidDesktop::startCompositor() {
  auto compositor =
      session_.start("picom", {"picom", "--config", "/dev/null", "--backend", "xrender", "--shadow"});
  EXPECT_TRUE(desktop().waitUntil([this] { return desktop().composited(); }, desktop::startTimeout));
  return compositor;
}

void OverlaidDesktop::end(desktop::ChildProcess& compositor) {
  compositor.end();
  EXPECT_TRUE(desktop().waitUntil([this] { return !desktop().composited(); }));
  x_->dispatch();  // logs what the server found wrong with the requests so far
}

}  // namespace tilwin::x11
