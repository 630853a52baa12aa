#include "app/drag/DragRecording.h"

#include <chrono>

namespace tilwin {
namespace {

constexpr MainQueue::Seconds tickInterval(1);
constexpr MainQueue::Seconds tickTolerance(0.5);

}  // namespace

DragRecording::DragRecording(MainQueue& mainQueue, Bundle& bundle) : mainQueue_(mainQueue), bundle_(bundle) {}

void DragRecording::apply(bool on) {
  if (on) open();
  if (on && recorder_) {
    if (!timer_)
      timer_ = mainQueue_.repeat(tickInterval, tickTolerance, [recorder = recorder_] { recorder->tick(); });
    return;
  }
  timer_.reset();
  if (recorder_) recorder_->discard();
}

void DragRecording::actionPerformed(std::int64_t windowID, SnapAction action) {
  if (timer_) recorder_->actionPerformed(windowID, action);
}

std::optional<std::filesystem::path> DragRecording::file() {
  return ShadowLogFile::defaultURL(bundle_.applicationSupport());
}

std::size_t DragRecording::count() {
  if (log_) log_->drain();
  const auto place = file();
  return place ? ShadowLogFile::read(*place).size() : 0;
}

void DragRecording::erase() {
  if (log_) return log_->erase();
  if (const auto place = file()) ShadowLogFile(*place).erase();
}

void DragRecording::open() {
  if (recorder_) return;
  const auto place = file();
  if (!place) return;
  log_ = std::make_shared<ShadowLogFile>(*place);
  recorder_ = std::make_shared<ShadowRecorder>(
      log_, [&queue = mainQueue_] { return std::chrono::floor<Date::duration>(queue.now()); });
}

void DragRecording::finish() {
  if (!recorder_) return;
  recorder_->flush();
  log_->drain();
}

}  // namespace tilwin
