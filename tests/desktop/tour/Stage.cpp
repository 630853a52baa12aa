#include "tests/desktop/tour/Stage.h"

#include <unistd.h>

#include <cstdio>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

constexpr Milliseconds stillness{120};

/// One line that is written over and over, where somebody watches.
void showProgress(std::size_t number, const std::string& by, const std::string& action) {
  if (isatty(STDERR_FILENO) == 0) return;
  std::fprintf(stderr, "\r\033[K%2zu  %s  %s", number, by.c_str(), action.c_str());
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
  showProgress(scenes_.size() + 1, cue.shortcut, cue.action);
  const auto pressed = session_.input().press(cue.chord);
  keep(application, {.by = cue.shortcut, .action = cue.action, .expected = cue.expected, .right = true},
       pressed);
}

void Stage::drag(const RealApplication& application, const DragExample& example) {
  const std::size_t number = scenes_.size() + 1;
  showProgress(number, "drag", example.action);
  auto& hand = session_.input();
  hand.takeHold(session_.desktop().titleBar(application.window()));
  hand.comeToRest(example.pointer);
  const bool previewed = previews(example.frame);
  session_.desktop().waitUntil([] { return false; }, stillness);
  session_.screenshot(folder_ / fileName(number, std::string("drag-") + example.action + "-preview"));
  const auto letGo = Clock::now();
  hand.buttonUp();
  keep(application,
       {.by = "drag",
        .action = std::string("drag-") + example.action,
        .expected = example.frame,
        .right = previewed},
       letGo);
}

bool Stage::previews(const Rect& frame) {
  auto& desktop = session_.desktop();
  return desktop.waitUntil([&] {
    const auto overlay = desktop.unmanagedOfClass("Tilwin");
    return overlay && desktop.topLevelArea(*overlay) == frame;
  });
}

void Stage::keep(const RealApplication& application, Scene scene, Clock::time_point since) {
  auto& desktop = session_.desktop();
  const WindowId window = application.window();
  desktop.waitUntil([&] { return isRight(window, scene.expected); });
  const std::chrono::duration<double, std::milli> taken = Clock::now() - since;
  desktop.waitUntil([] { return false; }, stillness);
  session_.screenshot(folder_ / fileName(scenes_.size() + 1, scene.action));
  scene.application = application.traits().name;
  scene.seen = desktop.frame(window).value_or(Rect());
  scene.milliseconds = taken.count();
  scene.right = scene.right && isRight(window, scene.expected);
  scenes_.push_back(scene);
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
