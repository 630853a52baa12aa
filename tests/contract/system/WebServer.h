#pragma once

#include <QTcpServer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QTcpSocket;

namespace tilwin::contract {

/// What a client asked for; names of headers in lower case.
struct WebRequest {
  std::string path{};
  std::map<std::string, std::string> headers{};

  bool operator==(const WebRequest&) const = default;
};

/// What a server answers.
struct WebAnswer {
  int status = 200;
  std::vector<std::string> headers{};  ///< "Name: value"
  std::string body{};
  /// Sends the body again and again until so many bytes are sent or the client hangs up. Says no length.
  qint64 endlessly = 0;
  bool isHeadOpen = false;  ///< the body goes on with the headers
  bool never = false;       ///< sends nothing and keeps the connection open
};

/// An HTTP server on a port of the loopback interface, which answers while the main loop runs.
class WebServer {
public:
  using Maker = std::function<WebAnswer(const WebRequest&)>;

  /// `server` accepts the connections, encrypted if it is a QSslServer.
  explicit WebServer(Maker maker, std::unique_ptr<QTcpServer> server = std::make_unique<QTcpServer>());
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;
  ~WebServer();

  /// An address on this server.
  [[nodiscard]] std::string address(const std::string& path = "/", const std::string& scheme = "http",
                                    const std::string& host = "127.0.0.1") const;
  [[nodiscard]] const std::vector<WebRequest>& requests() const { return requests_; }
  /// Body bytes handed to the kernel.
  [[nodiscard]] qint64 bytesSent() const { return bytesSent_; }

private:
  void take(QTcpSocket* client);
  void answer(QTcpSocket* client, const WebRequest& request);
  void sendMore(QTcpSocket* client, const WebAnswer& answer);

  Maker maker_;
  std::unique_ptr<QTcpServer> server_;
  std::vector<WebRequest> requests_;
  qint64 bytesSent_ = 0;
};

}  // namespace tilwin::contract
