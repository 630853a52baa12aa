#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tilwin {

/// Keeps a receiver subscribed; destroying this ends the subscription. May outlive the `Published`.
class [[nodiscard]] Subscription {
public:
  Subscription() = default;
  explicit Subscription(std::shared_ptr<const void> receiver) : receiver_(std::move(receiver)) {}
  Subscription(Subscription&&) noexcept = default;
  Subscription& operator=(Subscription&&) noexcept = default;
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  ~Subscription() = default;

private:
  std::shared_ptr<const void> receiver_;
};

/// A value that notifies receivers before it changes, with the new value. A receiver may subscribe, end any
/// subscription including its own, and call `set` again; then the outermost `set` determines the final value.
/// One thread only.
template <typename T>
class Published {
public:
  using Receiver = std::function<void(const T& next)>;

  /// `afterEachChange` is for the owner: called with the new value after each change.
  explicit Published(T initial = {}, Receiver afterEachChange = nullptr)
      : value_(std::move(initial)), afterEachChange_(std::move(afterEachChange)) {}
  Published(const Published&) = delete;
  Published& operator=(const Published&) = delete;
  ~Published() = default;

  [[nodiscard]] const T& get() const { return value_; }

  void set(T next) {
    // A copy, as receivers may subscribe and unsubscribe during the loop.
    const auto receivers = receivers_;
    for (const auto& each : receivers) {
      if (const auto receiver = each.lock()) (*receiver)(next);
    }
    value_ = std::move(next);
    if (afterEachChange_) afterEachChange_(value_);
  }

  [[nodiscard]] Subscription subscribe(Receiver receiver) {
    std::erase_if(receivers_, [](const auto& each) { return each.expired(); });
    auto kept = std::make_shared<const Receiver>(std::move(receiver));
    receivers_.push_back(kept);
    return Subscription(std::move(kept));
  }

private:
  T value_;
  Receiver afterEachChange_;
  std::vector<std::weak_ptr<const Receiver>> receivers_;
};

}  // namespace tilwin
