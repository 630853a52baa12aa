#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/layouts/LayoutChange.h"
#include "core/layouts/DisplaySignature.h"
#include "core/layouts/LayoutStore.h"
#include "core/layouts/LayoutsFile.h"
#include "core/snap/SnapController.h"
#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/SystemLog.h"

namespace tilwin {

/// Keeps the saved layouts and their file: those of the user, and one for each set of displays, which is
/// captured every 20 seconds and put back when these displays return. Main thread only.
class LayoutKeeper {
public:
  static constexpr MainQueue::Seconds captureInterval{20};
  static constexpr MainQueue::Seconds holdAfterChange{12};  ///< no capture after the displays have changed
  static constexpr MainQueue::Seconds restoreDelay{2.5};    ///< desktops move windows themselves meanwhile

  struct Ports {
    MainQueue& mainQueue;
    AccessibilityTrust& trust;
    Bundle& bundle;
    SystemLog& log;
  };

  /// The ports and the controller must outlive this; the provider is held weakly.
  LayoutKeeper(Ports ports, std::weak_ptr<WindowProvider> windows, SnapController& controller);
  LayoutKeeper(const LayoutKeeper&) = delete;
  LayoutKeeper& operator=(const LayoutKeeper&) = delete;
  ~LayoutKeeper() = default;

  /// "Tilwin/layouts.json" in the Application Support folder, or in the temporary folder if there is none;
  /// there, see `LayoutsFile::Surroundings::shared`.
  [[nodiscard]] static std::filesystem::path layoutsURL(Bundle& bundle);

  /// Reads the file. Call it once, before anything else.
  void load();
  /// Remembers the displays connected now.
  void start();
  /// Whether the user wants windows put back when displays return. Captures only run while this is on.
  void setRestoring(bool on);
  void displaysChanged();

  /// Called after each change of the user's layouts, and after windows were put in place by any layout.
  LayoutChangeHandler onChange;

  [[nodiscard]] const LayoutStore& layouts() const { return layouts_; }
  /// Both change the file at once. A write that fails is logged once and ignored; the next one is tried
  /// again. What somebody else has written meanwhile is kept beside the file, which is logged once for each
  /// name.
  void save(const Layout& layout);
  void remove(const Uuid& id);
  /// A layout of all open windows.
  [[nodiscard]] Layout capture(std::string name, bool isAutomatic) const;
  /// The present time, in the precision of layouts.
  [[nodiscard]] Date now() const;
  /// Moves windows; the returned plan has the slots without a window.
  LayoutPlan place(const Layout& layout);

private:
  void snapshot();
  void restore(const Layout& layout);
  void tell(LayoutChange change, const Layout& layout) const;
  void write();
  [[nodiscard]] bool mayAct() const;
  [[nodiscard]] std::vector<DisplayInfo> displays() const;

  Ports ports_;
  std::weak_ptr<WindowProvider> windows_;
  SnapController& controller_;
  std::optional<LayoutsFile> file_;
  LayoutStore layouts_;
  bool restoring_ = false;
  bool failing_ = false;  ///< the last write failed
  std::set<std::string> loggedCopies_;
  std::optional<DisplaySignature> lastSignature_;
  MainQueue::WallTime snapshotHoldUntil_{};
  std::unique_ptr<MainQueue::Repetition> snapshotTimer_;
  /// Delayed tasks hold this weakly, so that they do nothing after this object is destroyed.
  std::shared_ptr<LayoutKeeper*> self_;
};

}  // namespace tilwin
