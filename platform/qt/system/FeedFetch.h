#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>

class QNetworkReply;

namespace tilwin::qt {

/// Fetches one small document by HTTP. Destroying it ends the fetch without a result.
class FeedFetch {
public:
  struct Limits {
    std::chrono::milliseconds time{30'000};  ///< for the whole fetch
    qint64 bytes = qint64{1} << 20;          ///< of each answer
    int redirects = 5;
  };

  /// What goes to the server that the address names, and to no other.
  using Headers = std::map<std::string, std::string>;

  /// The document, or why there is none.
  struct Result {
    std::optional<QByteArray> document{};
    std::string problem{};
  };
  using Handler = std::function<void(const Result&)>;

  /// Only addresses of http and https with a host can be fetched.
  [[nodiscard]] static bool canFetch(const QUrl& address);

  /// Starts at once. `onResult` is called once, from the event loop; it must not destroy this. Redirects are
  /// followed, but never from https to http.
  FeedFetch(const QUrl& address, Headers headers, const Limits& limits, Handler onResult);
  FeedFetch(const FeedFetch&) = delete;
  FeedFetch& operator=(const FeedFetch&) = delete;
  ~FeedFetch();

private:
  void request(const QUrl& address);
  /// Returns false if the answer is too large and the fetch has ended.
  bool takeBytes();
  void takeEnd();
  void redirect(const QUrl& target);
  void end(const Result& result);

  QUrl origin_;
  Headers headers_;
  Limits limits_;
  Handler onResult_;
  QByteArray document_;
  int redirects_ = 0;
  QTimer timer_;
  QNetworkAccessManager network_;
  QPointer<QNetworkReply> reply_;
};

}  // namespace tilwin::qt
