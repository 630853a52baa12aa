#include "tests/desktop/harness/ShortLivedServer.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

constexpr int firstNumber = 700;  ///< servers that choose for themselves take the lowest that is free
constexpr int lastNumber = 9999;

std::string pathOf(const std::string& display) { return "/tmp/.X11-unix/X" + display.substr(1); }

sockaddr_un addressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

template <typename Call>
bool applies(Call call, const Descriptor& socket, const std::string& path) {
  const auto address = addressOf(path);
  return call(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

Descriptor newSocket() { return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)); }

bool sendWhole(const Descriptor& to, std::string_view text) {
  while (!text.empty()) {
    const ssize_t sent = ::send(to.number(), text.data(), text.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

bool isReady(const pollfd& descriptor) { return descriptor.revents != 0; }

}  // namespace

ShortLivedServer::ShortLivedServer(std::string behind, std::size_t bytes)
    : behind_(std::move(behind)), bytes_(bytes), listening_(newSocket()), stop_(Pipe::make()) {
  for (int number = firstNumber; path_.empty() && number <= lastNumber; ++number) {
    display_ = ":" + std::to_string(number);
    if (applies(::bind, listening_, pathOf(display_))) path_ = pathOf(display_);
  }
  constexpr int queue = 16;
  if (path_.empty() || ::listen(listening_.number(), queue) != 0) throw HarnessError("no display is free");
  thread_ = std::thread([this] { serve(); });
}

ShortLivedServer::~ShortLivedServer() {
  stop_.writeEnd.close();
  thread_.join();
}

void ShortLivedServer::serve() {
  std::vector<Client> clients;
  while (serveOnce(clients)) {
  }
  // As the kernel does when a server dies, which nobody can connect to from then on.
  listening_.close();
  ::unlink(path_.c_str());
}

/// False when its time is over.
bool ShortLivedServer::serveOnce(std::vector<Client>& clients) {
  std::vector<pollfd> watched{{stop_.readEnd.number(), POLLIN, 0}, {listening_.number(), POLLIN, 0}};
  for (const auto& client : clients) {
    watched.push_back({client.client.number(), POLLIN, 0});
    watched.push_back({client.server.number(), POLLIN, 0});
  }
  if (::poll(watched.data(), watched.size(), -1) < 0 || isReady(watched[0])) return false;
  for (std::size_t index = clients.size(); index-- > 0;) {
    const bool asks = isReady(watched[2 + 2 * index]);
    const bool answers = isReady(watched[3 + 2 * index]);
    const bool goesOn =
        (!asks || passOn(clients[index], false)) && (!answers || passOn(clients[index], true));
    if (said_ == bytes_) return false;
    if (!goesOn) clients.erase(clients.begin() + static_cast<std::ptrdiff_t>(index));
  }
  if (isReady(watched[1])) accept(clients);
  return true;
}

void ShortLivedServer::accept(std::vector<Client>& clients) const {
  Client client{Descriptor(::accept4(listening_.number(), nullptr, nullptr, SOCK_CLOEXEC)), newSocket()};
  if (applies(::connect, client.server, pathOf(behind_))) clients.push_back(std::move(client));
}

/// False when one end has closed.
bool ShortLivedServer::passOn(const Client& client, bool answers) {
  std::array<char, 65536> some{};
  const std::size_t most = answers ? std::min(some.size(), bytes_ - said_) : some.size();
  const ssize_t got = ::read((answers ? client.server : client.client).number(), some.data(), most);
  if (got <= 0) return false;
  const auto size = static_cast<std::size_t>(got);
  if (answers) said_ += size;
  return sendWhole(answers ? client.client : client.server, {some.data(), size});
}

}  // namespace tilwin::desktop
