#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include "tests/desktop/harness/Descriptor.h"

namespace tilwin::desktop {

/// A display of its own on which an X server says so many bytes to all its clients together, and is gone
/// then, in the middle of what it was saying. Until then it passes on what they and another server say to
/// each other, though no descriptors. Source: X Window System Protocol, connection by a socket in
/// /tmp/.X11-unix.
class ShortLivedServer {
public:
  /// Throws HarnessError if there is no display number for it.
  ShortLivedServer(std::string behind, std::size_t bytes);
  ShortLivedServer(const ShortLivedServer&) = delete;
  ShortLivedServer& operator=(const ShortLivedServer&) = delete;
  ~ShortLivedServer();

  /// ":N".
  std::string display() const { return display_; }
  /// How many bytes it has said so far.
  std::size_t said() const { return said_; }

private:
  struct Client {
    Descriptor client;
    Descriptor server;
  };

  void serve();
  bool serveOnce(std::vector<Client>& clients);
  void accept(std::vector<Client>& clients) const;
  bool passOn(const Client& client, bool answers);

  const std::string behind_;
  const std::size_t bytes_;
  std::string display_;
  std::string path_;
  Descriptor listening_;
  Pipe stop_;
  std::atomic<std::size_t> said_ = 0;
  std::thread thread_;
};

}  // namespace tilwin::desktop
