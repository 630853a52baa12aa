#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/ports/UpdateFramework.h"

namespace tilwin {

/// An update framework that a test makes report whether a check can start.
class SimulatedUpdates final : public UpdateFramework {
public:
  /// What the program has done with its controller.
  struct State {
    std::string feed{};
    UpdateController::Headers headers{};
    bool headersSetBeforeStart = false;
    int starts = 0;
    int checks = 0;  ///< that could start
    bool canCheck = false;
    std::function<void(bool)> handler{};
  };

  /// The state of the only controller; null if none was created.
  [[nodiscard]] const std::shared_ptr<State>& state() const { return state_; }
  /// Starting fails with this description from now on.
  void failToStart(std::string error) { error_ = std::move(error); }
  /// Whether the program runs without the framework.
  bool isMissing = false;
  /// Called when the program starts its controller.
  std::function<void()> whenStarting;
  /// The framework reports that a check can start, or no longer can.
  void setCanCheck(bool can) {
    state_->canCheck = can;
    if (state_->handler) state_->handler(can);
  }

  std::unique_ptr<UpdateController> createController(const std::string& feed) override {
    if (isMissing) return nullptr;
    state_ = std::make_shared<State>();
    state_->feed = feed;
    return std::make_unique<Controller>(state_, error_, whenStarting);
  }

private:
  class Controller final : public UpdateController {
  public:
    Controller(std::shared_ptr<State> state, std::optional<std::string> error,
               std::function<void()> whenStarting)
        : state_(std::move(state)), error_(std::move(error)), whenStarting_(std::move(whenStarting)) {}

    void setHTTPHeaders(const Headers& headers) override {
      state_->headers = headers;
      state_->headersSetBeforeStart = state_->starts == 0;
    }
    std::optional<std::string> start() override {
      ++state_->starts;
      if (whenStarting_) whenStarting_();
      return error_;
    }
    void onCanCheckForUpdates(std::function<void(bool)> handler) override {
      handler(state_->canCheck);
      state_->handler = std::move(handler);
    }
    void checkForUpdates() override {
      if (state_->canCheck) ++state_->checks;
    }

  private:
    std::shared_ptr<State> state_;
    std::optional<std::string> error_;
    std::function<void()> whenStarting_;
  };

  std::shared_ptr<State> state_;
  std::optional<std::string> error_;
};

}  // namespace tilwin
