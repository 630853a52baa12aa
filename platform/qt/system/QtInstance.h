#pragma once

#include <QDBusConnection>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tilwin::qt {

/// One instance of this program on a display: the first owns a name on the session bus, and a later one asks
/// it to show the settings. Without a bus all of them run. Source: D-Bus Specification, "RequestName".
class QtInstance {
public:
  /// `display` is that of the X server, as in $DISPLAY.
  explicit QtInstance(std::string_view display, std::chrono::milliseconds patience = std::chrono::seconds(1));
  QtInstance(const QtInstance&) = delete;
  QtInstance& operator=(const QtInstance&) = delete;
  /// Gives up the name.
  ~QtInstance();

  /// Returns false if another instance runs and has been asked to show the settings; this process should then
  /// exit. True if this one is the first, or there is no bus that works. Takes no longer than `patience`,
  /// even if the bus or the first instance do not answer.
  [[nodiscard]] bool claim();
  /// Called from the event loop each time a later instance asks for the settings, and now if one has asked
  /// already.
  void onShowSettings(std::function<void()> handler);

  /// That on which the name is owned; not connected without a bus.
  [[nodiscard]] QDBusConnection bus() const;

  /// The name on the bus for a display; the screens of a display share it.
  [[nodiscard]] static std::string serviceName(std::string_view display);

private:
  class Claim;

  std::string service_;
  std::chrono::milliseconds patience_;
  std::unique_ptr<Claim> claim_;
};

}  // namespace tilwin::qt
