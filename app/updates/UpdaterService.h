#pragma once

#include <memory>

#include "app/settings/Published.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/UpdateFramework.h"

namespace tilwin {

/// Checks for updates of this program, if it was built with the address of a feed. One per process, made once
/// when the program starts. Main thread only.
class UpdaterService {
public:
  /// Keys of the information dictionary. Both hold text; a token that is missing or empty is not sent.
  static constexpr const char* feedKey = "SUFeedURL";
  static constexpr const char* tokenKey = "TWUpdateChannelToken";
  /// The header that carries the token with every request for the feed.
  static constexpr const char* channelHeader = "X-Tilwin-Channel";

  /// Starts the updater; touches no network. Without a feed there is no updater and nothing is logged. If the
  /// updater fails to start, that is logged and checks may become possible later. The framework must outlive
  /// this.
  UpdaterService(Bundle& bundle, UpdateFramework& framework, SystemLog& log);
  UpdaterService(const UpdaterService&) = delete;
  UpdaterService& operator=(const UpdaterService&) = delete;
  ~UpdaterService() = default;

  /// Whether there is an updater that has started.
  [[nodiscard]] bool hasStarted() const { return hasStarted_; }
  /// Starts a check that the user asked for and returns at once. Does nothing without an updater.
  void checkForUpdates();

  /// Whether a check can start now; false without an updater. Set by this service only.
  Published<bool> canCheckForUpdates{false};

private:
  bool hasStarted_ = false;
  /// Destroyed first, as it reports to `canCheckForUpdates`.
  std::unique_ptr<UpdateController> controller_;
};

}  // namespace tilwin
