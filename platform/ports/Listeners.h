#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tilwin {

/// A list of callbacks, for use in adapters. Each callback stays registered as long as its token lives; the
/// caller owns the token. `Token` is the base class that the port declares. A callback may add others and
/// destroy its own and other tokens while it runs.
template <typename Token, typename... Arguments>
class Listeners {
public:
  using Handler = std::function<void(Arguments...)>;

  [[nodiscard]] std::unique_ptr<Token> add(Handler handler) {
    std::erase_if(handlers_, [](const auto& each) { return each.expired(); });
    auto token = std::make_unique<Listener>(std::move(handler));
    handlers_.push_back(token->handler);
    return token;
  }

  void tell(Arguments... arguments) const {
    // A copy, because a handler may change the list.
    const auto handlers = handlers_;
    for (const auto& each : handlers) {
      if (const auto handler = each.lock()) (*handler)(arguments...);
    }
  }

private:
  struct Listener : Token {
    explicit Listener(Handler told) : handler(std::make_shared<const Handler>(std::move(told))) {}

    std::shared_ptr<const Handler> handler;
  };

  std::vector<std::weak_ptr<const Handler>> handlers_;
};

}  // namespace tilwin
