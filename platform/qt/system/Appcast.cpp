#include "platform/qt/system/Appcast.h"

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <QXmlStreamReader>
#include <utility>

namespace tilwin::qt {
namespace {

constexpr auto sparkle = "http://www.andymatuschak.org/xml-namespaces/sparkle";
constexpr qsizetype longestProblem = 200;

/// Reads the one document it is made for.
class AppcastReader {
public:
  explicit AppcastReader(std::string_view feed)
      : xml_(QByteArray::fromRawData(feed.data(), static_cast<qsizetype>(feed.size()))) {}

  Appcast::Reading read() {
    readDocument();
    if (xml_.hasError())
      return {.problem = xml_.errorString().simplified().left(longestProblem).toStdString()};
    if (!newest_) return {.problem = "the feed lists no release"};
    if (newest_->page.empty()) newest_->page = channelPage_;
    return {.newest = std::move(newest_)};
  }

private:
  /// What an item says of its release.
  struct Item {
    QString shortVersion{};
    QString version{};
    std::string page{};
    bool isForOthers = false;  ///< it is in a channel
    bool hasForeignFile = false;
    bool hasOwnFile = false;
  };

  [[nodiscard]] bool isAt(const char* space, const char* name) const {
    return xml_.name() == QLatin1String(name) && xml_.namespaceUri() == QLatin1String(space);
  }

  QString text() { return xml_.readElementText(QXmlStreamReader::SkipChildElements).trimmed(); }

  std::string page() {
    const QUrl url(text(), QUrl::StrictMode);
    const bool isWeb = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!isWeb || url.host().isEmpty() || !url.userInfo().isEmpty()) return {};
    return url.toEncoded().toStdString();
  }

  void readDocument() {
    while (!xml_.atEnd() && !xml_.isStartElement()) {
      xml_.readNext();
      // Its entities could make a small document a huge one.
      if (xml_.isDTD()) xml_.raiseError(QStringLiteral("a document type declaration is not allowed"));
    }
    if (xml_.hasError()) return;
    if (!isAt("", "rss")) return xml_.raiseError(QStringLiteral("the document is no RSS feed"));
    while (xml_.readNextStartElement()) isAt("", "channel") ? readChannel() : xml_.skipCurrentElement();
    // A document that breaks off later is no document.
    while (!xml_.atEnd()) xml_.readNext();
  }

  void readChannel() {
    while (xml_.readNextStartElement()) {
      if (isAt("", "item")) {
        readItem();
      } else if (isAt("", "link")) {
        channelPage_ = page();
      } else {
        xml_.skipCurrentElement();
      }
    }
  }

  void readItem() {
    Item item;
    while (xml_.readNextStartElement()) readPart(item);
    if (item.isForOthers || (item.hasForeignFile && !item.hasOwnFile)) return;
    for (const QString& written : {item.shortVersion, item.version}) {
      const std::string name = written.toStdString();
      const auto version = ReleaseVersion::parse(name);
      if (!version) continue;
      if (!newest_ || newest_->version < *version) newest_ = {*version, name, item.page};
      return;
    }
  }

  void readPart(Item& item) {
    if (isAt("", "enclosure")) {
      readFile(item);
    } else if (isAt("", "link")) {
      item.page = page();
    } else if (isAt(sparkle, "shortVersionString")) {
      item.shortVersion = text();
    } else if (isAt(sparkle, "version")) {
      item.version = text();
    } else {
      item.isForOthers = item.isForOthers || isAt(sparkle, "channel");
      xml_.skipCurrentElement();
    }
  }

  /// The attributes of a file to download. An element that says the same counts more.
  void readFile(Item& item) {
    const auto attributes = xml_.attributes();
    const auto value = [&](const char* name) {
      return attributes.value(QLatin1String(sparkle), QLatin1String(name)).toString().trimmed();
    };
    if (item.shortVersion.isEmpty()) item.shortVersion = value("shortVersionString");
    if (item.version.isEmpty()) item.version = value("version");
    const QString system = value("os");
    const bool isForeign = !system.isEmpty() && system != QLatin1String("linux");
    (isForeign ? item.hasForeignFile : item.hasOwnFile) = true;
    xml_.skipCurrentElement();
  }

  QXmlStreamReader xml_;
  std::optional<Appcast::Release> newest_;
  std::string channelPage_;
};

}  // namespace

Appcast::Reading Appcast::read(std::string_view feed) { return AppcastReader(feed).read(); }

}  // namespace tilwin::qt
