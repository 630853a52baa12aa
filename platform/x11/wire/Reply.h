#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>

namespace tilwin::x11 {

struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};

/// Owns a reply, event or error of xcb, which must be freed with `free`. Null if the request failed.
template <typename T>
using Reply = std::unique_ptr<T, FreeDeleter>;

template <auto Collect>
class Pending;

/// A request that was sent and whose reply is collected later, so that many requests can share one round
/// trip. `Collect` is xcb's reply function, as in `Pending<xcb_get_geometry_reply>`. A reply that is not
/// collected is discarded. The connection must outlive this.
template <typename T, typename Cookie, T* (*Collect)(xcb_connection_t*, Cookie, xcb_generic_error_t**)>
class Pending<Collect> {
public:
  Pending(xcb_connection_t* connection, Cookie cookie) : connection_(connection), cookie_(cookie) {}
  Pending(Pending&& other) noexcept
      : connection_(other.connection_), cookie_(std::exchange(other.cookie_, std::nullopt)) {}
  Pending(const Pending&) = delete;
  Pending& operator=(const Pending&) = delete;
  Pending& operator=(Pending&&) = delete;
  ~Pending() {
    if (cookie_) xcb_discard_reply(connection_, cookie_->sequence);
  }

  /// Waits for the reply. Null if the request failed or its reply was collected before.
  [[nodiscard]] Reply<T> collect() {
    const auto cookie = std::exchange(cookie_, std::nullopt);
    return cookie ? Reply<T>(Collect(connection_, *cookie, nullptr)) : nullptr;
  }

private:
  xcb_connection_t* connection_;
  std::optional<Cookie> cookie_;
};

}  // namespace tilwin::x11
