#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace tilwin {

/// Checks for updates of this program and talks to the user about them. Source: SPUStandardUpdaterController
/// of Sparkle.
class UpdateController {
public:
  using Headers = std::map<std::string, std::string>;

  UpdateController() = default;
  UpdateController(const UpdateController&) = delete;
  UpdateController& operator=(const UpdateController&) = delete;
  virtual ~UpdateController() = default;

  /// Headers that every request for the feed carries. Call it before `start`.
  virtual void setHTTPHeaders(const Headers& headers) = 0;
  /// Returns the description of the error, or nothing if it succeeded. Until it succeeds, no check can start.
  virtual std::optional<std::string> start() = 0;
  /// Calls the handler with the present value at once, and with each later one, as long as this lives.
  virtual void onCanCheckForUpdates(std::function<void(bool)> handler) = 0;
  /// Starts a check that the user asked for and returns at once; the user is told the result. Does nothing
  /// while no check can start.
  virtual void checkForUpdates() = 0;
};

class UpdateFramework {
public:
  UpdateFramework() = default;
  UpdateFramework(const UpdateFramework&) = delete;
  UpdateFramework& operator=(const UpdateFramework&) = delete;
  virtual ~UpdateFramework() = default;

  /// A controller that has not started. Null if the framework is missing.
  [[nodiscard]] virtual std::unique_ptr<UpdateController> createController(const std::string& feed) = 0;
};

}  // namespace tilwin
