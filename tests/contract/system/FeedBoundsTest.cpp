#include <gtest/gtest.h>

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "tests/contract/system/FeedFetching.h"

namespace tilwin::contract {
namespace {

using namespace std::chrono_literals;

/// The most memory this process has had since the last call of `forgetPeak`, in bytes.
std::size_t peakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::size_t kilobytes = 0;
    if (word == "VmHWM:" && status >> kilobytes) return kilobytes * 1024;
  }
  return 0;
}

void forgetPeak() { std::ofstream("/proc/self/clear_refs") << 5; }

/// A fetch ends within its bounds, whatever the server does.
struct FeedBoundsTest : FeedFetching {};

TEST_F(FeedBoundsTest, GivesUpOnAServerThatDoesNotAnswerInTime) {
  WebServer server([](const WebRequest&) { return WebAnswer{.never = true}; });
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(problem(server.address(), {.time = 200ms}), "the server took too long");
  EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
}

TEST_F(FeedBoundsTest, GivesUpOnAServerThatSendsByteByByte) {
  WebServer server([](const WebRequest&) { return WebAnswer{.never = true}; });
  QTcpServer slow;
  ASSERT_TRUE(slow.listen(QHostAddress::LocalHost));
  QTimer drip;
  QObject::connect(&slow, &QTcpServer::newConnection, &slow, [&] {
    auto* const client = slow.nextPendingConnection();
    client->write("HTTP/1.1 200 OK\r\n\r\n");
    QObject::connect(&drip, &QTimer::timeout, client, [client] { client->write("<"); });
    drip.start(20ms);
  });
  EXPECT_EQ(problem("http://127.0.0.1:" + std::to_string(slow.serverPort()) + "/", {.time = 300ms}),
            "the server took too long");
}

TEST_F(FeedBoundsTest, StopsReadingAnAnswerThatIsTooLarge) {
  constexpr qint64 gigabyte = qint64{1} << 30;
  for (const auto& headers : std::vector<std::vector<std::string>>{{}, {"Content-Length: 1073741824"}}) {
    WebServer server([&](const WebRequest&) {
      return WebAnswer{.headers = headers, .body = std::string(65536, 'x'), .endlessly = gigabyte};
    });
    forgetPeak();
    const auto before = peakMemory();
    EXPECT_EQ(problem(server.address()), "the answer is too large");
    EXPECT_LT(peakMemory() - before, std::size_t{32} << 20);
    EXPECT_LT(server.bytesSent(), qint64{32} << 20) << "most of it in buffers of the kernel";
  }
}

TEST_F(FeedBoundsTest, DoesNotUnpackWhatIsPacked) {
  WebServer server([](const WebRequest&) {
    return WebAnswer{.headers = {"Content-Encoding: gzip"}, .body = "\x1f\x8b packed"};
  });
  EXPECT_EQ(fetch(server.address()).document, QByteArray("\x1f\x8b packed"));
  EXPECT_EQ(server.requests().at(0).headers.at("accept-encoding"), "identity");
}

TEST_F(FeedBoundsTest, StopsReadingHeadersWithoutEnd) {
  constexpr qint64 gigabyte = qint64{1} << 30;
  WebServer server([&](const WebRequest&) {
    return WebAnswer{
        .body = "X-More: " + std::string(65536, 'x') + "\r\n", .endlessly = gigabyte, .isHeadOpen = true};
  });
  forgetPeak();
  const auto before = peakMemory();
  EXPECT_NE(problem(server.address(), {.time = 300ms}), "");
  EXPECT_LT(peakMemory() - before, std::size_t{32} << 20);
}

}  // namespace
}  // namespace tilwin::contract
