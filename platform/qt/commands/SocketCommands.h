#pragma once

#include <QLocalServer>
#include <QObject>
#include <memory>
#include <string>

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

  /// The socket's file, which a file in its place must not be mistaken for: one is replaced only if it is a
  /// socket on which nobody listens. Empty: there is no place for one, and nothing is taken.
  explicit SocketCommands(std::string path);
  SocketCommands(const SocketCommands&) = delete;
  SocketCommands& operator=(const SocketCommands&) = delete;
  /// Removes the file.
  ~SocketCommands() override;

  bool serve(Handler handler) override;

  /// The file for this display, by the process's environment; empty if there is no runtime folder.
  [[nodiscard]] static std::string pathFor(const std::string& display);

private:
  class Caller;

  void takeCallers();
  void hangUpOnTheOldest();

  std::string path_;
  Handler handler_;
  std::unique_ptr<QLocalServer> server_;
};

}  // namespace tilwin::qt
