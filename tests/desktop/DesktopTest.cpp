#include "tests/desktop/DesktopTest.h"

#include <sstream>

namespace tilwin::desktop {

std::unique_ptr<Session> DesktopTest::session_;
std::unique_ptr<TilwinProcess> DesktopTest::tilwin_;

Arguments& arguments() {
  static Arguments values;
  return values;
}

std::string text(const Rect& frame) {
  std::ostringstream out;
  out << frame.width << "×" << frame.height << " at " << frame.x << "," << frame.y;
  return out.str();
}

void DesktopTest::SetUpTestSuite() {
  session_ = std::make_unique<Session>(SessionOptions{.manager = arguments().manager});
  restartTilwin();
}

void DesktopTest::TearDownTestSuite() {
  endTilwin();
  session_.reset();
}

void DesktopTest::TearDown() {
  if (tilwin_ && tilwin_->process().running()) return;
  ADD_FAILURE() << "Tilwin ended: " << (tilwin_ ? tilwin_->log() : "");
  restartTilwin();
}

void DesktopTest::restartTilwin() {
  endTilwin();
  tilwin_ = std::make_unique<TilwinProcess>(*session_, arguments().tilwin);
}

std::filesystem::path DesktopTest::settingsFolder() { return session_->home().config() / "Tilwin"; }

void DesktopTest::restartTilwinWith(const std::string& settings) {
  // Read once, at the start; written at the end.
  endTilwin();
  std::string value;
  for (const char character : settings) value += character == '"' ? "\\\"" : std::string(1, character);
  session_->home().write("config/Tilwin/Tilwin.conf", "[General]\ntilwin.settings.v1=\"" + value + "\"\n");
  restartTilwin();
}

void DesktopTest::focus(WindowId window) {
  ASSERT_TRUE(desktop().activate(window)) << "the window never became active";
}

void DesktopTest::focusAtStart(WindowId window) {
  focus(window);
  if (desktop().frame(window) == startFrame) return;
  placeByHand(window, startFrame);
  ASSERT_TRUE(desktop().waitForFrame(window, startFrame)) << text(desktop().frame(window).value_or(Rect()));
}

void DesktopTest::placeByHand(WindowId window, const Rect& frame) {
  desktop().settle();
  desktop().place(window, frame);
}

Rect DesktopTest::settled(WindowId window) {
  desktop().settle();
  return desktop().frame(window).value_or(Rect());
}

testing::AssertionResult DesktopTest::stands(WindowId window, const Rect& frame, double tolerance) {
  if (desktop().waitForFrame(window, frame, tolerance)) return testing::AssertionSuccess();
  const auto seen = desktop().frame(window);
  return testing::AssertionFailure() << "expected " << text(frame) << ", saw "
                                     << (seen ? text(*seen) : std::string("no window")) << "\n"
                                     << tilwin_->log();
}

testing::AssertionResult DesktopTest::serves() {
  const TestWindow window = session_->window({.title = "The next window"});
  if (!desktop().activate(window.id())) return testing::AssertionFailure() << "no window can be focused";
  press("Control+Alt+u");
  return stands(window.id(), {0, 0, 960, 540});
}

}  // namespace tilwin::desktop
