#include "app/layouts/LayoutKeeper.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <system_error>
#include <utility>

namespace tilwin {
namespace {

/// Lets the system combine the capture with other wake-ups.
constexpr MainQueue::Seconds captureTolerance{1};

/// The usual one of the system if the user's variable names a folder that is not there.
std::filesystem::path temporaryFolder() {
  std::error_code missing;
  const auto folder = std::filesystem::temp_directory_path(missing);
  return missing ? "/tmp" : folder;
}

}  // namespace

LayoutKeeper::LayoutKeeper(Ports ports, std::weak_ptr<WindowProvider> windows, SnapController& controller)
    : ports_(ports),
      windows_(std::move(windows)),
      controller_(controller),
      self_(std::make_shared<LayoutKeeper*>(this)) {}

std::filesystem::path LayoutKeeper::layoutsURL(Bundle& bundle) {
  const auto folder = bundle.applicationSupport();
  return (folder ? *folder : temporaryFolder()) / "Tilwin" / "layouts.json";
}

void LayoutKeeper::load() {
  using Surroundings = LayoutsFile::Surroundings;
  file_.emplace(layoutsURL(ports_.bundle),
                ports_.bundle.applicationSupport() ? Surroundings::ofUser : Surroundings::shared);
  layouts_ = file_->load();
}

void LayoutKeeper::start() { lastSignature_ = DisplaySignature(displays()); }

void LayoutKeeper::setRestoring(bool on) {
  restoring_ = on;
  if (!on) {
    snapshotTimer_.reset();
  } else if (!snapshotTimer_) {
    snapshotTimer_ = ports_.mainQueue.repeat(captureInterval, captureTolerance, [this] { snapshot(); });
  }
}

void LayoutKeeper::displaysChanged() {
  DisplaySignature signature(displays());
  if (signature == lastSignature_) return;
  snapshotHoldUntil_ =
      ports_.mainQueue.now() + std::chrono::duration_cast<MainQueue::WallTime::duration>(holdAfterChange);
  lastSignature_ = std::move(signature);
  if (!mayAct()) return;
  const auto layout = layouts_.automatic(*lastSignature_);
  if (!layout) return;
  ports_.mainQueue.postAfter(restoreDelay, [weak = std::weak_ptr(self_), layout = *layout] {
    if (const auto self = weak.lock()) (*self)->restore(layout);
  });
}

/// Does nothing if the displays have changed again: the layout belongs to other ones then.
void LayoutKeeper::restore(const Layout& layout) {
  if (mayAct() && layout.signature == lastSignature_) place(layout);
}

void LayoutKeeper::snapshot() {
  if (!mayAct() || ports_.mainQueue.now() <= snapshotHoldUntil_) return;
  Layout layout = capture("Automatic", true);
  if (layout.slots.empty() || !layout.signature) return;
  const auto kept = layouts_.automatic(*layout.signature);
  if (kept && kept->slots == layout.slots) return;
  layouts_.setAutomatic(std::move(layout));
  write();
}

void LayoutKeeper::save(const Layout& layout) {
  layouts_.save(layout);
  write();
  tell(LayoutChange::saved, layout);
}

void LayoutKeeper::remove(const Uuid& id) {
  const auto layouts = layouts_.userLayouts();
  const auto removed = std::ranges::find(layouts, id, &Layout::id);
  layouts_.remove(id);
  write();
  if (removed != layouts.end()) tell(LayoutChange::deleted, *removed);
}

void LayoutKeeper::tell(LayoutChange change, const Layout& layout) const {
  if (const auto receiver = onChange) receiver(change, layout);
}

Layout LayoutKeeper::capture(std::string name, bool isAutomatic) const {
  const auto windows = windows_.lock();
  return LayoutPlanner::snapshot(windows ? windows->allWindows() : std::vector<WindowInfo>(), displays(),
                                 std::move(name), isAutomatic, now());
}

Date LayoutKeeper::now() const { return std::chrono::floor<Date::duration>(ports_.mainQueue.now()); }

LayoutPlan LayoutKeeper::place(const Layout& layout) {
  auto plan = controller_.apply(layout);
  tell(LayoutChange::applied, layout);
  return plan;
}

void LayoutKeeper::write() {
  try {
    const auto copy = file_->write(layouts_);
    failing_ = false;
    if (copy && loggedCopies_.insert(*copy).second) {
      ports_.log.write("Tilwin: " + layoutsURL(ports_.bundle).string() +
                       " was changed by another hand; that is kept as " + *copy);
    }
  } catch (const std::exception& reason) {
    if (!std::exchange(failing_, true)) {
      ports_.log.write("Tilwin: layouts could not be saved: " + std::string(reason.what()));
    }
  }
}

bool LayoutKeeper::mayAct() const { return restoring_ && ports_.trust.isTrusted(); }

std::vector<DisplayInfo> LayoutKeeper::displays() const {
  const auto windows = windows_.lock();
  return windows ? windows->displays() : std::vector<DisplayInfo>();
}

}  // namespace tilwin
