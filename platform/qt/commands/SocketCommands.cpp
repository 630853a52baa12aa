#include "platform/qt/commands/SocketCommands.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QLocalSocket>
#include <QString>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <span>
#include <string_view>
#include <utility>

#include "core/commands/CommandAnswer.h"
#include "core/commands/CommandWire.h"

namespace tilwin::qt {
namespace {

constexpr std::chrono::seconds patience{5};
constexpr std::chrono::milliseconds patienceWithPredecessor{200};

bool isFromThisUser(const QLocalSocket& socket) {
  ucred caller{};
  socklen_t size = sizeof caller;
  return getsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &caller, &size) ==
             0 &&
         caller.uid == getuid();
}

/// Whether the name is free, or that of a socket on which nobody listens any more; that one is removed.
bool makeRoom(const QString& path) {
  struct stat there {};
  if (lstat(QFile::encodeName(path).constData(), &there) != 0) return errno == ENOENT;
  if (!S_ISSOCK(there.st_mode) || there.st_uid != getuid()) return false;
  QLocalSocket predecessor;
  predecessor.connectToServer(path);
  if (predecessor.waitForConnected(static_cast<int>(patienceWithPredecessor.count()))) return false;
  return QLocalServer::removeServer(path);
}

CommandReply tooManyWatch() {
  return CommandReply::failed(exit_status::couldNot, "Too many programs watch already.");
}

}  // namespace

/// One connection. Child of the server, and destroyed with its socket.
class SocketCommands::Caller : public QObject {
public:
  Caller(QLocalSocket& socket, Handler handler)
      : QObject(&socket), socket_(socket), handler_(std::move(handler)) {
    QObject::connect(&socket, &QLocalSocket::disconnected, &socket, &QObject::deleteLater);
    QObject::connect(&socket, &QLocalSocket::readyRead, this, [this] { read(); });
    QTimer::singleShot(patience, this, [this] {
      if (!isWatching_) socket_.abort();
    });
    // What came before the connection was taken is not announced again.
    read();
  }

  [[nodiscard]] bool isWaiting() const { return !wasAnswered_; }
  [[nodiscard]] bool isWatching() const { return isWatching_; }

  void tell(const QByteArray& frame) {
    if (socket_.bytesToWrite() > mostUnread) return socket_.abort();
    socket_.write(frame);
    socket_.flush();
  }

  void end() {
    tell(QByteArray::fromStdString(CommandWire::statusFrame(exit_status::done)));
    socket_.disconnectFromServer();
  }

private:
  void read() {
    if (wasAnswered_) {
      // Nothing more is expected, and nobody could make this grow.
      socket_.readAll();
      return;
    }
    bytes_ += socket_.readAll();
    const auto request = CommandWire::received({bytes_.constData(), static_cast<std::size_t>(bytes_.size())});
    if (request.state == CommandWire::Received::State::incomplete) return;
    wasAnswered_ = true;
    if (request.state == CommandWire::Received::State::wrong) return socket_.abort();
    answer(handler_(request.arguments));
  }

  void answer(const CommandReply& reply) {
    isWatching_ = reply.isWatching;
    socket_.write(QByteArray::fromStdString(CommandAnswer::bytes(reply)));
    // At once, as the command may have been to quit.
    socket_.flush();
    if (!isWatching_) socket_.disconnectFromServer();
  }

  QLocalSocket& socket_;
  Handler handler_;
  QByteArray bytes_;
  bool wasAnswered_ = false;
  bool isWatching_ = false;
};

SocketCommands::SocketCommands(std::string path) : path_(std::move(path)) {}

SocketCommands::~SocketCommands() {
  for (Caller* caller : callers()) {
    if (caller->isWatching()) caller->end();
  }
}

std::string SocketCommands::pathFor(const std::string& display) {
  const char* const folder = std::getenv("XDG_RUNTIME_DIR");
  return CommandWire::socketPath(folder == nullptr ? "" : folder, display).value_or("");
}

bool SocketCommands::serve(Handler handler) {
  const QString path = QString::fromLocal8Bit(path_.c_str());
  if (path_.empty() || !makeRoom(path)) return false;
  handler_ = [this, handler = std::move(handler)](std::span<const std::string> arguments) {
    auto reply = handler(arguments);
    const bool isFull = std::ranges::count_if(callers(), &Caller::isWatching) >= mostWatching;
    return reply.isWatching && isFull ? tooManyWatch() : reply;
  };
  server_ = std::make_unique<QLocalServer>();
  server_->setSocketOptions(QLocalServer::UserAccessOption);
  QObject::connect(server_.get(), &QLocalServer::newConnection, server_.get(), [this] { takeCallers(); });
  // Qt lets its user execute it, too, which means nothing for a socket.
  if (server_->listen(path) && chmod(path_.c_str(), S_IRUSR | S_IWUSR) == 0) return true;
  server_.reset();
  return false;
}

void SocketCommands::takeCallers() {
  while (QLocalSocket* const socket = server_->nextPendingConnection()) {
    if (!isFromThisUser(*socket)) {
      socket->abort();
      socket->deleteLater();
      continue;
    }
    hangUpOnTheOldest();
    new Caller(*socket, handler_);  // NOLINT(cppcoreguidelines-owning-memory): the socket owns it
  }
}

void SocketCommands::hangUpOnTheOldest() {
  auto waiting = callers();
  waiting.removeIf([](const Caller* caller) { return !caller->isWaiting(); });
  if (waiting.size() < mostWaiting) return;
  static_cast<QLocalSocket*>(waiting.front()->parent())->abort();
}

void SocketCommands::tell(std::string_view line) {
  const auto frame =
      QByteArray::fromStdString(CommandWire::frame(CommandWire::FrameKind::output, std::string(line) + "\n"));
  for (Caller* caller : callers()) {
    if (caller->isWatching()) caller->tell(frame);
  }
}

QList<SocketCommands::Caller*> SocketCommands::callers() const {
  QList<Caller*> all;
  if (server_ == nullptr) return all;
  for (QLocalSocket* socket : server_->findChildren<QLocalSocket*>(Qt::FindDirectChildrenOnly)) {
    for (QObject* child : socket->children()) {
      if (auto* const caller = dynamic_cast<Caller*>(child)) all.push_back(caller);
    }
  }
  return all;
}

}  // namespace tilwin::qt
