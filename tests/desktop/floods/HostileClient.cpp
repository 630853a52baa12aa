#include "tests/desktop/floods/HostileClient.h"

#include <utility>

namespace tilwin::desktop {

namespace {

/// Rounds between two waits for the server: enough that it never runs out of them, and few enough that the
/// end of a flood comes when it is asked for.
constexpr unsigned roundsAtOnce = 200;

}  // namespace

HostileClient::HostileClient(const std::string& display, Act act)
    : client_(display), act_(std::move(act)), thread_([this] { run(); }) {}

HostileClient::~HostileClient() {
  ends_ = true;
  thread_.join();
}

void HostileClient::run() {
  while (!ends_ && client_.alive()) {
    for (unsigned count = 0; count < roundsAtOnce && !ends_; ++count) act_(client_, rounds_++);
    client_.sync();
    while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(client_.get())}) {
      if (event->response_type == 0) ++refused_;
    }
  }
}

}  // namespace tilwin::desktop
