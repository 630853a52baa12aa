#include "tests/desktop/harness/RealApplication.h"

#include <algorithm>
#include <cstdio>
#include <exception>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

constexpr std::array<ApplicationTraits, 4> table{{
    {Application::xterm, "xterm", {"xterm", "-fa", "DejaVu Sans Mono", "-fs", "10"}, "XTerm"},
    {Application::gtkHeaderBar, "gtk3-demo", {"gtk3-demo"}, "Gtk3-demo"},
    {Application::gtkMenuBar, "gtk3-demo-application", {"gtk3-demo-application"}, "Gtk3-demo-application"},
    {Application::qt, "featherpad", {"featherpad", "--standalone"}, "FeatherPad"},
}};

std::vector<std::string> argvOf(const ApplicationTraits& row) {
  std::vector<std::string> argv;
  for (const char* word : row.argv) {
    if (word != nullptr) argv.emplace_back(word);
  }
  return argv;
}

}  // namespace

const ApplicationTraits& traits(Application application) {
  for (const auto& row : table) {
    if (row.application == application) return row;
  }
  throw HarnessError("no such application");
}

RealApplication::RealApplication(Application application, const PrivateHome& home,
                                 const Environment& environment, Desktop& desktop)
    : traits_(desktop::traits(application)), desktop_(desktop) {
  const auto before = desktop.clients();
  process_ = ChildProcess::start(
      {.argv = argvOf(traits_), .environment = environment, .outputFile = home.log(traits_.name)});
  waitForWindow(before);
  desktop.settle();
}

RealApplication::~RealApplication() {
  process_.end();
  try {
    desktop_.waitUntil([this] { return !isListed(); });
  } catch (const std::exception& reason) {
    std::fprintf(stderr, "%s: %s\n", traits_.name, reason.what());
  }
}

bool RealApplication::isListed() {
  const auto clients = desktop_.clients();
  return std::find(clients.begin(), clients.end(), window_) != clients.end();
}

void RealApplication::waitForWindow(const std::vector<WindowId>& before) {
  const auto appeared = [&] {
    for (const WindowId window : desktop_.clients()) {
      const bool known = std::find(before.begin(), before.end(), window) != before.end();
      if (!known && desktop_.wmClass(window).second == traits_.className && desktop_.viewable(window)) {
        window_ = window;
      }
    }
    return window_ != 0;
  };
  if (!desktop_.waitUntil([&] { return appeared() || !process_.running(); }, startTimeout) || window_ == 0) {
    throw HarnessError(std::string(traits_.name) + " shows no window:\n" + lastLines(process_.output(), 8));
  }
}

}  // namespace tilwin::desktop
