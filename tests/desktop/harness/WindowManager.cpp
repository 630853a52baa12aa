#include "tests/desktop/harness/WindowManager.h"

#include <algorithm>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// How long a manager that has not answered is left alone.
constexpr Milliseconds askAgain{300};

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
  process_ = ChildProcess::start({.argv = {traits_.program, traits_.argument},
                                  .environment = environment_,
                                  .outputFile = home_.log(traits_.name)});
  const auto ready = [&] { return desktop_.managed() && (!composites() || desktop_.composited()); };
  const bool came = desktop_.waitUntil([&] { return ready() || !process_.running(); }, startTimeout);
  if (came && ready() && managerAnswers()) return;
  throw HarnessError(std::string(traits_.name) + " does not manage the desktop:\n" +
                     lastLines(process_.output(), 12));
}

bool WindowManager::supports(const std::string& message) {
  XConnection& connection = desktop_.connection();
  const auto supported = connection.numbers(connection.root(), "_NET_SUPPORTED");
  return std::find(supported.begin(), supported.end(), connection.atom(message)) != supported.end();
}

bool WindowManager::managerAnswers() {
  XConnection& connection = desktop_.connection();
  const WindowId asker = xcb_generate_id(connection.get());
  const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, asker, connection.root(), 0, 0, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
  const bool answersUnmapped = supports("_NET_REQUEST_FRAME_EXTENTS");
  if (!answersUnmapped) xcb_map_window(connection.get(), asker);
  // Not with every event: answering makes events of its own, and each would ask for more of them.
  Clock::time_point next{};
  const auto isListed = [&] {
    const auto clients = desktop_.clients();
    return std::find(clients.begin(), clients.end(), asker) != clients.end();
  };
  const auto answered = [&] {
    const bool framed = !connection.numbers(asker, "_NET_FRAME_EXTENTS").empty();
    // A mapped one is waited for until it is listed too, lest it be listed when it is forgotten already.
    if (framed && (answersUnmapped || isListed())) return true;
    if (!answersUnmapped || Clock::now() < next) return false;
    next = Clock::now() + askAgain;
    connection.sendToRoot(asker, "_NET_REQUEST_FRAME_EXTENTS", {0, 0, 0, 0, 0});
    return false;
  };
  const bool answers = desktop_.waitUntil(answered, startTimeout);
  xcb_destroy_window(connection.get(), asker);
  connection.flush();
  return answers && desktop_.waitUntil([&] { return !isListed(); });
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
