#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tilwin {

/// Keeps a receiver of changes listening for as long as it lives.
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

/// A value whose changes are announced: before each one, every receiver is told the value to come. A receiver
/// may end subscriptions, its own included, add others, and assign again, in which case the assignment that
/// began first has the last word.
template <typename T>
class Published {
public:
  using Receiver = std::function<void(const T& next)>;

  /// `afterEachChange` is the owner's, called with the value once it is in place.
  explicit Published(T initial = {}, Receiver afterEachChange = nullptr)
      : value_(std::move(initial)), afterEachChange_(std::move(afterEachChange)) {}
  Published(const Published&) = delete;
  Published& operator=(const Published&) = delete;
  ~Published() = default;

  [[nodiscard]] const T& get() const { return value_; }

  void set(T next) {
    // A copy, as receivers may come and go meanwhile.
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
