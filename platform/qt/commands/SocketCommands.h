#pragma once

#include <QList>
#include <QLocalServer>
#include <QObject>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ports/CommandServer.h"

class QLocalSocket;

namespace tilwin::qt {

/// Takes commands over a local socket in the user's runtime folder, which only this user can open (0600), as
/// `CommandWire` has it. A caller that does not finish its request within five seconds is hung up on; so is
/// the one that has waited longest when there are too many.
class SocketCommands : public CommandServer {
public:
  /// Callers whose request has not come at a time.
  static constexpr int mostWaiting = 64;
  /// Those that watch; a further one is refused.
  static constexpr int mostWatching = 64;
  /// What a watcher may leave unread, in bytes.
  static constexpr std::int64_t mostUnread = std::int64_t{1} << 20;

  /// The socket's file, which a file in its place must not be mistaken for: one is replaced only if it is a
  /// socket on which nobody listens. Empty: there is no place for one, and nothing is taken.
  explicit SocketCommands(std::string path);
  SocketCommands(const SocketCommands&) = delete;
  SocketCommands& operator=(const SocketCommands&) = delete;
  /// Removes the file; those who watch are told the end.
  ~SocketCommands() override;

  bool serve(Handler handler) override;
  void tell(std::string_view line) override;

  /// The file for this display, by the process's environment; empty if there is no runtime folder.
  [[nodiscard]] static std::string pathFor(const std::string& display);

private:
  class Caller;

  void takeCallers();
  void hangUpOnTheOldest();
  [[nodiscard]] QList<Caller*> callers() const;

  std::string path_;
  Handler handler_;
  std::unique_ptr<QLocalServer> server_;
};

}  // namespace tilwin::qt
