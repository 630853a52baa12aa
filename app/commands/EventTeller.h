#pragma once

#include <functional>
#include <memory>
#include <string>

#include "app/layouts/LayoutKeeper.h"
#include "app/settings/Published.h"
#include "app/settings/SettingsStore.h"
#include "core/geometry/WindowProvider.h"
#include "core/snap/SnapController.h"
#include "platform/ports/MainQueue.h"

namespace tilwin {

/// Tells other programs what happens here, as `EventLines`. Main thread only.
class EventTeller {
public:
  struct Parts {
    MainQueue& mainQueue;
    SettingsStore& store;
    WindowProvider& windows;
  };

  /// The parts must outlive this.
  explicit EventTeller(const Parts& parts);
  EventTeller(const EventTeller&) = delete;
  EventTeller& operator=(const EventTeller&) = delete;
  ~EventTeller() = default;

  using LineHandler = std::function<void(const std::string& line)>;

  /// From now on the handler is called for each event, as a task posted to the main queue: telling delays no
  /// window.
  void listen(LineHandler onLine);

  void snapped(std::int64_t window, SnapAction action);
  void snapped(std::int64_t window, const CustomArea& area);
  void layoutChanged(LayoutChange change, const Layout& layout);
  void displaysChanged();

private:
  void settingsChanged(const TilwinSettings& after);
  void tellLater(std::function<void()> tell);
  void tell(const std::string& line) const;

  Parts parts_;
  LineHandler onLine_;
  TilwinSettings known_;  ///< what the last lines about settings have led to
  Subscription settingsChanges_;
  /// Posted tasks hold this weakly, so that they do nothing after this object is destroyed.
  std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

}  // namespace tilwin
