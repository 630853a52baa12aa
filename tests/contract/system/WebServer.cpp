#include "tests/contract/system/WebServer.h"

#include <QByteArray>
#include <QHostAddress>
#include <QTcpSocket>
#include <stdexcept>

namespace tilwin::contract {
namespace {

/// Bytes that wait in the server for a slow client at most.
constexpr qint64 mostWaiting = 262144;

WebRequest requestIn(const QByteArray& head) {
  const auto lines = head.split('\n');
  WebRequest request{.path = lines.first().split(' ').value(1).toStdString()};
  for (const auto& line : lines.mid(1)) {
    const auto colon = line.indexOf(':');
    if (colon > 0)
      request.headers[line.left(colon).toLower().toStdString()] = line.mid(colon + 1).trimmed().toStdString();
  }
  return request;
}

std::string headOf(const WebAnswer& answer) {
  std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " As Asked\r\nConnection: close\r\n";
  if (answer.endlessly == 0) head += "Content-Length: " + std::to_string(answer.body.size()) + "\r\n";
  for (const auto& line : answer.headers) head += line + "\r\n";
  return answer.isHeadOpen ? head : head + "\r\n";
}

}  // namespace

WebServer::WebServer(Maker maker, std::unique_ptr<QTcpServer> server)
    : maker_(std::move(maker)), server_(std::move(server)) {
  if (!server_->listen(QHostAddress::LocalHost)) throw std::runtime_error("cannot listen on the loopback");
  QObject::connect(server_.get(), &QTcpServer::pendingConnectionAvailable, server_.get(), [this] {
    while (auto* const client = server_->nextPendingConnection()) take(client);
  });
}

WebServer::~WebServer() = default;

std::string WebServer::address(const std::string& path, const std::string& scheme,
                               const std::string& host) const {
  return scheme + "://" + host + ":" + std::to_string(server_->serverPort()) + path;
}

void WebServer::take(QTcpSocket* client) {
  const auto head = std::make_shared<QByteArray>();
  const auto read = [this, client, head] {
    *head += client->readAll();
    const auto end = head->indexOf("\r\n\r\n");
    if (end < 0) return;
    QObject::disconnect(client, &QTcpSocket::readyRead, server_.get(), nullptr);
    answer(client, requestIn(head->left(end)));
  };
  QObject::connect(client, &QTcpSocket::readyRead, server_.get(), read);
  QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
  read();
}

void WebServer::answer(QTcpSocket* client, const WebRequest& request) {
  requests_.push_back(request);
  const WebAnswer answer = maker_(request);
  if (answer.never) return;
  client->write(QByteArray::fromStdString(headOf(answer)));
  if (answer.endlessly == 0) {
    client->write(QByteArray::fromStdString(answer.body));
    client->disconnectFromHost();
    return;
  }
  QObject::connect(client, &QTcpSocket::bytesWritten, server_.get(),
                   [this, client, answer] { sendMore(client, answer); });
  sendMore(client, answer);
}

void WebServer::sendMore(QTcpSocket* client, const WebAnswer& answer) {
  const auto body = QByteArray::fromStdString(answer.body);
  while (client->bytesToWrite() < mostWaiting && bytesSent_ < answer.endlessly) {
    if (client->write(body) < 0) return;
    bytesSent_ += body.size();
  }
  if (bytesSent_ >= answer.endlessly) client->disconnectFromHost();
}

}  // namespace tilwin::contract
