#include "tests/desktop/layouts/LayoutDesktop.h"

#include <unistd.h>

#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include "platform/qt/QtMainQueue.h"
#include "platform/x11/windows/X11WindowProvider.h"
#include "tests/contract/TestLogs.h"

namespace tilwin::desktop {

namespace {

const std::vector<PluggedDisplay> displays{
    {.output = "DUMMY0", .mode = {1440, 900}, .position = {1920, 180}, .primary = true},
    {.output = "DUMMY1", .mode = {1920, 1080}, .position = {0, 0}}};

/// Longer than anything that a manager still does to a window after its first answer.
constexpr Milliseconds aftermath{300};

/// The farthest that any edge's coordinate or length is off.
double difference(const Rect& first, const Rect& second) {
  return std::max({std::abs(first.x - second.x), std::abs(first.y - second.y),
                   std::abs(first.width - second.width), std::abs(first.height - second.height)});
}

}  // namespace

/// The services of the program that place layouts, joined as it joins them.
struct LayoutDesktop::Tilwin {
  Tilwin() {
    queue.watch(x.fileDescriptor(), [this] { x.dispatch(); });
    queue.beforeEachSleep([this] { return x.dispatchQueued(); });
  }

  FailingLog log;
  qt::QtMainQueue queue;
  x11::X11Connection x{log};
  x11::X11Displays displays{x, queue};
  x11::HeldWindow held{x};
  std::shared_ptr<x11::X11WindowProvider> provider =
      std::make_shared<x11::X11WindowProvider>(x, displays, held, queue);
  SnapController controller{provider};
};

Manager LayoutDesktop::manager = Manager::openbox;
std::unique_ptr<Session> LayoutDesktop::session_;

void LayoutDesktop::TearDownTestSuite() { session_.reset(); }

void LayoutDesktop::SetUp() {
  // Here and not once for the suite, so that a server that does not start fails every test that needs it.
  if (!session_) {
    session_ = std::make_unique<Session>(SessionOptions{.manager = manager, .displays = displays});
  }
  setenv("DISPLAY", session().server().display().c_str(), 1);
  tilwin_ = std::make_shared<Tilwin>();
  ASSERT_EQ(provider().displays().size(), 2U);
}

void LayoutDesktop::TearDown() {
  windows_.clear();
  if (!session_) return;
  desktop().waitUntil([] { return desktop().clients().empty(); });
  if (session().server().displays() != displays) session().server().arrange(displays);
}

SnapController& LayoutDesktop::controller() { return tilwin_->controller; }
WindowProvider& LayoutDesktop::provider() { return *tilwin_->provider; }

WindowId LayoutDesktop::open(const std::string& className, const std::string& title, const Rect& frame) {
  const TestWindowOptions options{
      .className = className,
      .title = title,
      .area = frame,
      // A provider leaves windows of its own process alone.
      .process = getppid(),
  };
  windows_.push_back(std::make_unique<TestWindow>(session().server().display(), options));
  const WindowId window = windows_.back()->id();
  desktop().activate(window);
  desktop().place(window, frame);
  EXPECT_TRUE(desktop().waitForFrame(window, frame)) << title << " could not be put in its first place";
  return window;
}

Layout LayoutDesktop::fromFile(const std::string& text) {
  session().home().write("layouts.json", text);
  const auto store = LayoutStore::load(session().home().path() / "layouts.json");
  if (store.layouts.size() != 1) throw std::runtime_error("the layouts file does not hold one layout");
  return store.layouts.front();
}

Layout LayoutDesktop::withSlots(const std::string& slots) {
  return fromFile(R"({
  "layouts": [
    {
      "id": "5C2F1F5E-6B0C-4A2B-9C7B-3F0E8A1D2B4C",
      "name": "Desk",
      "isAutomatic": false,
      "updatedAt": "2026-03-01T09:30:00Z",
      "slots": [
)" + slots + R"(
      ]
    }
  ]
})");
}

Layout LayoutDesktop::savedAndLoaded(const Layout& layout) {
  const auto file = session().home().path() / "Tilwin" / "layouts.json";
  LayoutStore{{layout}}.write(file);
  return LayoutStore::load(file).layouts.at(0);
}

testing::AssertionResult LayoutDesktop::stands(WindowId window, const Rect& frame, double tolerance) {
  const auto there = [&] {
    const auto seen = desktop().frame(window);
    return seen && difference(*seen, frame) <= tolerance;
  };
  if (eventually(there)) {
    work(aftermath);
    if (there()) return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << desktop().title(window) << ": expected " << frame << ", saw "
                                     << desktop().frame(window).value_or(Rect());
}

testing::AssertionResult LayoutDesktop::standsByItsSteps(WindowId window, const Rect& frame) {
  const auto step = desktop().sizeIncrement(window);
  return stands(window, frame, std::max(step.width, step.height) - 1);
}

bool LayoutDesktop::eventually(const Predicate& condition) {
  const auto until = Clock::now() + answerTimeout;
  while (!condition()) {
    if (Clock::now() >= until) return false;
    work(Milliseconds{5});
  }
  return true;
}

void LayoutDesktop::work(Milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

void LayoutDesktop::placeByHand(WindowId window, const Rect& frame) {
  work(aftermath);
  desktop().place(window, frame);
  EXPECT_TRUE(stands(window, frame)) << "the scene could not be set";
}

}  // namespace tilwin::desktop
