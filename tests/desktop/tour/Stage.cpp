#include "tests/desktop/tour/Stage.h"

#include <unistd.h>

#include <cstdio>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

constexpr Milliseconds stillness{120};

/// One line that is written over and over, where somebody watches.
void showProgress(std::size_t number, const Cue& cue) {
  if (isatty(STDERR_FILENO) == 0) return;
  std::fprintf(stderr, "\r\033[K%2zu  %s  %s", number, cue.shortcut.c_str(), cue.action.c_str());
  std::fflush(stderr);
}

std::string fileName(std::size_t number, const std::string& action) {
  return (number < 10 ? "0" : "") + std::to_string(number) + "-" + action + ".png";
}

}  // namespace

Stage::Stage(Session& session, std::filesystem::path folder, std::vector<Scene>& scenes)
    : session_(session), folder_(std::move(folder)), scenes_(scenes) {}

void Stage::set(const RealApplication& application, const Rect& frame) {
  auto& desktop = session_.desktop();
  if (!desktop.activate(application.window())) throw HarnessError("a window cannot be focused");
  desktop.place(application.window(), frame);
  desktop.waitUntil([&] { return isRight(application.window(), frame); });
  desktop.waitUntil([] { return false; }, stillness);
}

void Stage::play(const RealApplication& application, const Cue& cue) {
  const std::size_t number = scenes_.size() + 1;
  showProgress(number, cue);
  auto& desktop = session_.desktop();
  const auto pressed = session_.input().press(cue.chord);
  desktop.waitUntil([&] { return isRight(application.window(), cue.expected); });
  const std::chrono::duration<double, std::milli> taken = Clock::now() - pressed;
  desktop.waitUntil([] { return false; }, stillness);
  session_.screenshot(folder_ / fileName(number, cue.action));
  scenes_.push_back({.shortcut = cue.shortcut,
                     .action = cue.action,
                     .application = application.traits().name,
                     .expected = cue.expected,
                     .seen = desktop.frame(application.window()).value_or(Rect()),
                     .milliseconds = taken.count(),
                     .right = isRight(application.window(), cue.expected)});
}

/// A terminal stands right when it fills the frame with as many whole cells as fit.
bool Stage::isRight(WindowId window, const Rect& expected) {
  const auto seen = session_.desktop().frame(window);
  if (!seen || seen->x != expected.x || seen->y != expected.y) return false;
  const auto step = session_.desktop().sizeIncrement(window);
  const double missingWidth = expected.width - seen->width;
  const double missingHeight = expected.height - seen->height;
  return missingWidth >= 0 && missingWidth < step.width && missingHeight >= 0 && missingHeight < step.height;
}

}  // namespace tilwin::desktop
