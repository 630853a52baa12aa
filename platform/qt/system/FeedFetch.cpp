#include "platform/qt/system/FeedFetch.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QVariant>
#include <utility>

namespace tilwin::qt {
namespace {

constexpr int statusOk = 200;
constexpr int firstRedirect = 300;
constexpr int firstError = 400;
/// How much is read ahead, in bytes.
constexpr qint64 readAhead = 65536;

int portOf(const QUrl& address) {
  return address.port(address.scheme() == QLatin1String("https") ? 443 : 80);
}

bool isSameServer(const QUrl& one, const QUrl& other) {
  return one.scheme() == other.scheme() && one.host() == other.host() && portOf(one) == portOf(other);
}

QNetworkRequest requestFor(const QUrl& address) {
  QNetworkRequest request(address);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  for (const auto attribute :
       {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
        QNetworkRequest::AuthenticationReuseAttribute})
    request.setAttribute(attribute, QNetworkRequest::Manual);
  request.setRawHeader("Accept", "application/rss+xml, application/xml;q=0.9, */*;q=0.1");
  // Named by us, Qt leaves what comes as it is, so a small answer cannot become a large one.
  request.setRawHeader("Accept-Encoding", "identity");
  request.setRawHeader("User-Agent", "Tilwin");
  return request;
}

}  // namespace

bool FeedFetch::canFetch(const QUrl& address) {
  const bool isWeb = address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https");
  return address.isValid() && isWeb && !address.host().isEmpty();
}

FeedFetch::FeedFetch(const QUrl& address, Headers headers, const Limits& limits, Handler onResult)
    : origin_(address), headers_(std::move(headers)), limits_(limits), onResult_(std::move(onResult)) {
  timer_.setSingleShot(true);
  timer_.callOnTimeout([this] { end({.problem = "the server took too long"}); });
  timer_.start(limits_.time);
  request(address);
}

FeedFetch::~FeedFetch() {
  if (reply_) reply_->disconnect();
}

void FeedFetch::request(const QUrl& address) {
  auto request = requestFor(address);
  if (isSameServer(address, origin_)) {
    for (const auto& [name, value] : headers_)
      request.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  }
  document_.clear();
  reply_ = network_.get(request);
  reply_->setReadBufferSize(readAhead);
  QObject::connect(reply_, &QNetworkReply::readyRead, &timer_, [this] { takeBytes(); });
  // Later, as a reply must not be destroyed while it tells its end.
  QObject::connect(
      reply_, &QNetworkReply::finished, &timer_, [this] { takeEnd(); }, Qt::QueuedConnection);
}

bool FeedFetch::takeBytes() {
  document_ += reply_->readAll();
  if (document_.size() <= limits_.bytes) return true;
  end({.problem = "the answer is too large"});
  return false;
}

void FeedFetch::takeEnd() {
  if (!takeBytes()) return;
  const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  const QUrl target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
  if (status >= firstRedirect && status < firstError && !target.isEmpty()) {
    redirect(reply_->url().resolved(target));
  } else if (status != 0 && status != statusOk) {
    end({.problem = "the server answered " + std::to_string(status)});
  } else if (reply_->error() != QNetworkReply::NoError) {
    end({.problem = reply_->errorString().simplified().toStdString()});
  } else {
    end({.document = document_});
  }
}

void FeedFetch::redirect(const QUrl& target) {
  const bool isDowngrade =
      reply_->url().scheme() == QLatin1String("https") && target.scheme() != QLatin1String("https");
  if (!canFetch(target) || isDowngrade) return end({.problem = "the server redirects to an unsafe address"});
  if (++redirects_ > limits_.redirects) return end({.problem = "the server redirects too often"});
  reply_->disconnect();
  reply_->deleteLater();
  request(target);
}

void FeedFetch::end(const Result& result) {
  timer_.stop();
  reply_->disconnect();
  reply_->abort();
  if (const auto handler = std::exchange(onResult_, nullptr)) handler(result);
}

}  // namespace tilwin::qt
