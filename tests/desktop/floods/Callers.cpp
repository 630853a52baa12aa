#include "tests/desktop/floods/Callers.h"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QStringList>
#include <array>
#include <utility>

namespace tilwin::desktop {

CallMaker socketCalls(std::string socket, std::function<std::string(unsigned call)> say, bool isPatient) {
  return [path = std::move(socket), say = std::move(say), isPatient](unsigned number) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
    const int caller = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const timeval longestAnswer{.tv_sec = 5, .tv_usec = 0};
    setsockopt(caller, SOL_SOCKET, SO_RCVTIMEO, &longestAnswer, sizeof longestAnswer);
    bool wasAnswered = false;
    if (connect(caller, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
      const std::string bytes = say(number);
      const bool wasSent = send(caller, bytes.data(), bytes.size(), MSG_NOSIGNAL) >= 0;
      std::array<char, 4096> answer{};
      while (wasSent && isPatient && recv(caller, answer.data(), answer.size(), 0) > 0) wasAnswered = true;
    }
    close(caller);
    return wasAnswered;
  };
}

CallMaker busCalls(const std::string& address, const std::string& display) {
  const QString name = QStringLiteral("flood");
  const auto bus = QDBusConnection::connectToBus(QString::fromStdString(address), name);
  const QString number = QString::fromStdString(display.substr(display.find(':') + 1));
  return [bus, service = "org.tilwin.Tilwin.display_" + number](unsigned) {
    auto call = QDBusMessage::createMethodCall(service, QStringLiteral("/org/tilwin/Commands"),
                                               QStringLiteral("org.tilwin.Commands1"), QStringLiteral("Run"));
    call << QStringList{QStringLiteral("get"), QStringLiteral("gap")};
    return bus.call(call).type() == QDBusMessage::ReplyMessage;
  };
}

Callers::Callers(CallMaker call) : call_(std::move(call)), thread_([this] { run(); }) {}

Callers::~Callers() {
  ends_ = true;
  thread_.join();
}

void Callers::run() {
  auto next = std::chrono::steady_clock::now();
  while (!ends_) {
    if (call_(calls_++)) ++answered_;
    next += pause;
    std::this_thread::sleep_until(next);
  }
}

}  // namespace tilwin::desktop
