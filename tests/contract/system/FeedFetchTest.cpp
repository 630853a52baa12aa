#include "platform/qt/system/FeedFetch.h"

#include <gtest/gtest.h>

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <chrono>
#include <string>

#include "tests/contract/system/FeedFetching.h"
#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::contract {
namespace {

using namespace std::chrono_literals;

struct FeedFetchTest : FeedFetching {};

TEST_F(FeedFetchTest, FetchesADocument) {
  WebServer server([](const WebRequest&) { return WebAnswer{.body = "<rss/>"}; });
  const auto result = fetch(server.address("/appcast.xml?for=me"));
  EXPECT_EQ(result.document, QByteArray("<rss/>"));
  ASSERT_EQ(server.requests().size(), 1);
  EXPECT_EQ(server.requests()[0].path, "/appcast.xml?for=me");
}

TEST_F(FeedFetchTest, FetchesFromAnOrdinaryServer) {
  const desktop::PrivateHome home;
  home.write("site/appcast.xml", "<rss version=\"2.0\"/>");
  auto server = desktop::ChildProcess::start(
      {.argv = {"python3", "-u", "-m", "http.server", "--bind", "127.0.0.1", "0"},
       .environment = home.environment(),
       .outputFile = home.log("server"),
       .workingFolder = home.path() / "site"});
  std::string port;
  ASSERT_TRUE(runMainLoopUntil(
      [&] {
        const std::string said = server.output();
        const auto at = said.find("http://127.0.0.1:");
        const auto end = said.find('/', at + 17);
        if (at == std::string::npos || end == std::string::npos) return false;
        port = said.substr(at + 17, end - at - 17);
        return true;
      },
      desktop::startTimeout))
      << server.output();
  EXPECT_EQ(fetch("http://127.0.0.1:" + port + "/appcast.xml").document,
            QByteArray("<rss version=\"2.0\"/>"));
  EXPECT_EQ(problem("http://127.0.0.1:" + port + "/missing.xml"), "the server answered 404");
}

TEST_F(FeedFetchTest, SendsTheHeadersItWasGivenAndNoOthersOfTheirKind) {
  WebServer server([](const WebRequest&) { return WebAnswer{}; });
  fetch(server.address(), token);
  fetch(server.address());
  ASSERT_EQ(server.requests().size(), 2);
  EXPECT_EQ(server.requests()[0].headers.at("x-tilwin-channel"), "beta");
  EXPECT_FALSE(server.requests()[1].headers.contains("x-tilwin-channel"));
  EXPECT_FALSE(server.requests()[1].headers.contains("cookie"));
}

TEST_F(FeedFetchTest, FollowsARedirectOnTheSameServerWithTheHeaders) {
  for (const int status : {301, 302, 303, 307, 308}) {
    WebServer server([&](const WebRequest& request) {
      return request.path == "/new/feed" ? WebAnswer{.body = "here"} : redirectTo("/new/feed", status);
    });
    EXPECT_EQ(fetch(server.address("/old"), token).document, QByteArray("here")) << status;
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(server.requests()[1].headers.at("x-tilwin-channel"), "beta");
  }
}

TEST_F(FeedFetchTest, TheHeadersGoToNoOtherPortOrHost) {
  WebServer other([](const WebRequest&) { return WebAnswer{.body = "here"}; });
  for (const char* const host : {"127.0.0.1", "localhost"}) {
    WebServer server([&](const WebRequest&) { return redirectTo(other.address("/feed", "http", host)); });
    EXPECT_EQ(fetch(server.address(), token).document, QByteArray("here"));
    EXPECT_EQ(server.requests().at(0).headers.at("x-tilwin-channel"), "beta");
  }
  WebServer toOtherName([&](const WebRequest& request) {
    return request.path == "/feed" ? WebAnswer{.body = "here"}
                                   : redirectTo(toOtherName.address("/feed", "http", "localhost"));
  });
  EXPECT_EQ(fetch(toOtherName.address(), token).document, QByteArray("here"));
  ASSERT_EQ(other.requests().size(), 2);
  for (const auto& request : other.requests()) EXPECT_FALSE(request.headers.contains("x-tilwin-channel"));
  EXPECT_FALSE(toOtherName.requests().at(1).headers.contains("x-tilwin-channel"));
}

TEST_F(FeedFetchTest, GivesUpOnACircleOfRedirects) {
  WebServer server([](const WebRequest&) { return redirectTo("/again"); });
  EXPECT_EQ(problem(server.address()), "the server redirects too often");
  EXPECT_EQ(server.requests().size(), 6);
}

TEST_F(FeedFetchTest, FollowsNoRedirectToAnythingButTheWeb) {
  for (const char* const address : {"file:///etc/passwd", "ftp://127.0.0.1/feed", "data:,x", "http://"}) {
    WebServer server([&](const WebRequest&) { return redirectTo(address); });
    const auto result = fetch(server.address());
    EXPECT_EQ(result.document, std::nullopt) << address;
    EXPECT_NE(result.problem, "") << address;
  }
}

TEST_F(FeedFetchTest, ReportsAnErrorOfTheServer) {
  for (const int status : {204, 400, 401, 403, 404, 407, 410, 500, 503}) {
    WebServer server([&](const WebRequest&) { return WebAnswer{.status = status, .body = "sorry"}; });
    EXPECT_EQ(problem(server.address()), "the server answered " + std::to_string(status));
  }
}

TEST_F(FeedFetchTest, ReportsThatThereIsNoServer) {
  std::string address;
  {
    const WebServer server([](const WebRequest&) { return WebAnswer{}; });
    address = server.address();
  }
  EXPECT_NE(problem(address), "");
  EXPECT_NE(problem("http://nowhere.invalid/feed"), "");
}

TEST_F(FeedFetchTest, ReportsWhatIsNotHTTP) {
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
    auto* const client = server.nextPendingConnection();
    client->write("220 mail.example.org ESMTP\r\n");
    client->disconnectFromHost();
  });
  EXPECT_NE(problem("http://127.0.0.1:" + std::to_string(server.serverPort()) + "/"), "");
}

TEST_F(FeedFetchTest, EndsWithoutAResultWhenDestroyed) {
  WebServer server([](const WebRequest&) { return WebAnswer{.never = true}; });
  bool isTold = false;
  {
    const qt::FeedFetch fetch(QUrl(QString::fromStdString(server.address())), {}, {},
                              [&](const qt::FeedFetch::Result&) { isTold = true; });
    ASSERT_TRUE(runMainLoopUntil([&] { return !server.requests().empty(); }, desktop::startTimeout));
  }
  runMainLoop(50ms);
  EXPECT_FALSE(isTold);
}

}  // namespace
}  // namespace tilwin::contract
