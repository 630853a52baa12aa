#include "app/commands/EventTeller.h"

#include <utility>

#include "app/commands/EventLines.h"

namespace tilwin {

EventTeller::EventTeller(const Parts& parts) : parts_(parts) {}

void EventTeller::listen(LineHandler onLine) {
  onLine_ = std::move(onLine);
  known_ = parts_.store.settings.get();
  settingsChanges_ = parts_.store.settings.subscribe([this](const TilwinSettings&) {
    // The value that is in force then, as receivers may set another one.
    tellLater([this] { settingsChanged(parts_.store.settings.get()); });
  });
}

void EventTeller::snapped(std::int64_t window, SnapAction action) {
  tellLater([this, window, action] { tell(EventLines::snapped(window, action)); });
}

void EventTeller::snapped(std::int64_t window, const CustomArea& area) {
  tellLater([this, window, area] { tell(EventLines::snapped(window, area)); });
}

void EventTeller::layoutChanged(LayoutChange change, const Layout& layout) {
  tellLater([this, line = EventLines::layout(change, layout)] { tell(line); });
}

void EventTeller::displaysChanged() {
  tellLater([this] { tell(EventLines::displays(parts_.windows.displays())); });
}

void EventTeller::settingsChanged(const TilwinSettings& after) {
  const TilwinSettings before = std::exchange(known_, after);
  for (const std::string& line : EventLines::settings(before, after)) tell(line);
}

void EventTeller::tellLater(std::function<void()> tell) {
  if (!onLine_) return;
  parts_.mainQueue.post([alive = std::weak_ptr(isAlive_), tell = std::move(tell)] {
    if (!alive.expired()) tell();
  });
}

void EventTeller::tell(const std::string& line) const { onLine_(line); }

}  // namespace tilwin
