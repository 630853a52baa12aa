#include "platform/qt/commands/SocketCommands.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QLocalSocket>
#include <QString>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <utility>

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

QByteArray answerTo(const CommandReply& reply) {
  std::string bytes;
  if (!reply.output.empty()) bytes += CommandWire::frame(CommandWire::FrameKind::output, reply.output);
  if (!reply.problem.empty()) bytes += CommandWire::frame(CommandWire::FrameKind::problem, reply.problem);
  bytes += CommandWire::statusFrame(reply.status);
  return QByteArray::fromStdString(bytes);
}

}  // namespace

/// One connection. Child of the server, and destroyed with its socket.
class SocketCommands::Caller : public QObject {
public:
  Caller(QLocalSocket& socket, Handler handler)
      : QObject(&socket), socket_(socket), handler_(std::move(handler)) {
    QObject::connect(&socket, &QLocalSocket::disconnected, &socket, &QObject::deleteLater);
    QObject::connect(&socket, &QLocalSocket::readyRead, this, [this] { read(); });
    QTimer::singleShot(patience, this, [this] { socket_.abort(); });
    // What came before the connection was taken is not announced again.
    read();
  }

  [[nodiscard]] bool isWaiting() const { return !wasAnswered_; }

private:
  void read() {
    if (wasAnswered_) return;
    bytes_ += socket_.readAll();
    const auto request = CommandWire::received({bytes_.constData(), static_cast<std::size_t>(bytes_.size())});
    if (request.state == CommandWire::Received::State::incomplete) return;
    wasAnswered_ = true;
    if (request.state == CommandWire::Received::State::wrong) return socket_.abort();
    socket_.write(answerTo(handler_(request.arguments)));
    // At once, as the command may have been to quit.
    socket_.flush();
    socket_.disconnectFromServer();
  }

  QLocalSocket& socket_;
  Handler handler_;
  QByteArray bytes_;
  bool wasAnswered_ = false;
};

SocketCommands::SocketCommands(std::string path) : path_(std::move(path)) {}

SocketCommands::~SocketCommands() = default;

std::string SocketCommands::pathFor(const std::string& display) {
  const char* const folder = std::getenv("XDG_RUNTIME_DIR");
  return CommandWire::socketPath(folder == nullptr ? "" : folder, display).value_or("");
}

bool SocketCommands::serve(Handler handler) {
  const QString path = QString::fromLocal8Bit(path_.c_str());
  if (path_.empty() || !makeRoom(path)) return false;
  handler_ = std::move(handler);
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
  QList<Caller*> waiting;
  for (QLocalSocket* socket : server_->findChildren<QLocalSocket*>(Qt::FindDirectChildrenOnly)) {
    for (QObject* child : socket->children()) {
      auto* const caller = dynamic_cast<Caller*>(child);
      if (caller != nullptr && caller->isWaiting()) waiting.push_back(caller);
    }
  }
  if (waiting.size() < mostWaiting) return;
  static_cast<QLocalSocket*>(waiting.front()->parent())->abort();
}

}  // namespace tilwin::qt
