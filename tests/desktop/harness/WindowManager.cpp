#include "tests/desktop/harness/WindowManager.h"

#include <algorithm>
#include <filesystem>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// How long a manager that has not answered is left alone.
constexpr Milliseconds askAgain{300};
/// How much longer a manager that was shown a window is left alone.
constexpr Milliseconds showAgain{3000};
/// After so many without an answer a manager is shown a window instead; fluxbox answers only for such a one.
constexpr int mostQuestions = 3;

/// A window by which to find out whether the manager handles requests.
class ReadyQuestion {
public:
  ReadyQuestion(Desktop& desktop, bool tellsExtents, int questions)
      : desktop_(desktop), tellsExtents_(tellsExtents), questions_(questions) {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(server().get(), XCB_COPY_FROM_PARENT, asker_, server().root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
  }

  bool isListed() {
    const auto clients = desktop_.clients();
    return std::find(clients.begin(), clients.end(), asker_) != clients.end();
  }

  /// Asks anew from time to time: not with every event, as answering makes events of its own, and each would
  /// ask for more of them.
  bool isAnswered() {
    const bool isFramed = !tellsExtents_ || !server().numbers(asker_, "_NET_FRAME_EXTENTS").empty();
    // A mapped one is waited for until it is listed too, lest it be listed when it is forgotten already.
    if (isFramed && (isShown_ ? isListed() : questions_ > 0)) return true;
    if (Clock::now() < next_) return false;
    next_ = Clock::now() + askAgain;
    if (questions_-- > 0) {
      server().sendToRoot(asker_, "_NET_REQUEST_FRAME_EXTENTS", {0, 0, 0, 0, 0});
    } else {
      show();
    }
    return false;
  }

  void end() {
    xcb_destroy_window(server().get(), asker_);
    server().flush();
  }

private:
  XConnection& server() { return desktop_.connection(); }

  /// Some announce themselves before they take charge of windows that are shown, others take their time.
  void show() {
    next_ += showAgain;
    if (isShown_ && !isListed()) xcb_unmap_window(server().get(), asker_);
    xcb_map_window(server().get(), asker_);
    server().flush();
    isShown_ = true;
  }

  Desktop& desktop_;
  WindowId asker_ = xcb_generate_id(server().get());
  bool tellsExtents_;
  int questions_;
  bool isShown_ = false;
  Clock::time_point next_{};
};

}  // namespace

WindowManager::WindowManager(Manager manager, const ManagerSetup& setup, const PrivateHome& home,
                             Environment environment, Desktop& desktop)
    : traits_(desktop::traits(manager)),
      setup_(setup),
      home_(home),
      environment_(std::move(environment)),
      desktop_(desktop) {
  traits_.configure(home_, setup_);
  start();
}

bool WindowManager::composites() const {
  return traits_.canComposite && setup_.compositing.value_or(traits_.compositesByDefault);
}

void WindowManager::stop() {
  process_.end();
  if (!desktop_.waitUntil([&] { return !desktop_.managed(); })) {
    throw HarnessError(std::string(traits_.name) + " has ended, yet the desktop is still managed");
  }
}

void WindowManager::start() {
  std::vector<std::string> argv{traits_.program};
  if (traits_.argument != nullptr) argv.emplace_back(traits_.argument);
  desktop_.setPlacing(traits_.placing);
  const auto readyFile = home_.path() / managerReady;
  std::filesystem::remove(readyFile);
  process_ =
      ChildProcess::start({.argv = argv, .environment = environment_, .outputFile = home_.log(traits_.name)});
  const auto ready = [&] {
    return desktop_.managed() && (!composites() || desktop_.composited()) &&
           (!traits_.runsScript || std::filesystem::exists(readyFile));
  };
  const bool came = desktop_.waitUntil([&] { return ready() || !process_.running(); }, startTimeout);
  if (came && ready() && managerAnswers()) return;
  throw HarnessError(std::string(traits_.name) + " does not manage the desktop:\n" +
                     lastLines(process_.output(), 12));
}

bool WindowManager::managerAnswers() {
  if (traits_.runsScript) return true;
  const bool isAsked = desktop_.supports("_NET_REQUEST_FRAME_EXTENTS");
  ReadyQuestion question(desktop_, desktop_.supports("_NET_FRAME_EXTENTS"), isAsked ? mostQuestions : 0);
  const bool answers = desktop_.waitUntil([&] { return question.isAnswered(); }, startTimeout);
  question.end();
  return answers && desktop_.waitUntil([&] { return !question.isListed(); });
}

void WindowManager::restart() {
  const auto before = desktop_.clients();
  stop();
  start();
  const auto back = [&] {
    const auto now = desktop_.clients();
    return std::all_of(before.begin(), before.end(), [&](WindowId window) {
      return std::find(now.begin(), now.end(), window) != now.end() || !desktop_.clientArea(window);
    });
  };
  if (!desktop_.waitUntil(back))
    throw HarnessError(std::string(traits_.name) + " lost windows in its restart");
}

}  // namespace tilwin::desktop
