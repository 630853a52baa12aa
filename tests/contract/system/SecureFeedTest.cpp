#include <gtest/gtest.h>

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <memory>
#include <optional>
#include <string>

#include "tests/contract/system/FeedFetching.h"
#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::contract {
namespace {

/// A server with a certificate that only this test trusts.
struct SecureFeedTest : FeedFetching {
  void SetUp() override {
    auto openssl = desktop::ChildProcess::start(
        {.argv = {"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj",
                  "/CN=Tilwin test", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", "key.pem", "-out",
                  "certificate.pem"},
         .environment = home.environment(),
         .outputFile = home.log("openssl"),
         .workingFolder = home.path()});
    ASSERT_EQ(openssl.waitFor(desktop::startTimeout),
              (desktop::ExitStatus{.code = 0, .signal = std::nullopt}))
        << openssl.output();
    const auto certificates = QSslCertificate::fromPath(pathOf("certificate.pem"));
    ASSERT_EQ(certificates.size(), 1);
    certificate = certificates.first();
    QFile key(pathOf("key.pem"));
    ASSERT_TRUE(key.open(QIODevice::ReadOnly));
    configuration.setLocalCertificate(certificate);
    configuration.setPrivateKey(QSslKey(&key, QSsl::Rsa));
  }
  SecureFeedTest() = default;
  SecureFeedTest(const SecureFeedTest&) = delete;
  SecureFeedTest& operator=(const SecureFeedTest&) = delete;
  ~SecureFeedTest() override { QSslConfiguration::setDefaultConfiguration(before); }

  [[nodiscard]] QString pathOf(const char* name) const {
    return QString::fromStdString((home.path() / name).string());
  }
  std::unique_ptr<QSslServer> secureServer() {
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    return server;
  }
  void trustCertificate() {
    auto trusting = before;
    trusting.addCaCertificate(certificate);
    QSslConfiguration::setDefaultConfiguration(trusting);
  }

  desktop::PrivateHome home;
  QSslCertificate certificate;
  QSslConfiguration before = QSslConfiguration::defaultConfiguration();
  QSslConfiguration configuration = before;
};

TEST_F(SecureFeedTest, FetchesFromAServerThatIsTrusted) {
  WebServer server([](const WebRequest&) { return WebAnswer{.body = "here"}; }, secureServer());
  EXPECT_NE(problem(server.address("/", "https")), "") << "not trusted yet";
  EXPECT_EQ(server.requests().size(), 0);
  trustCertificate();
  EXPECT_EQ(fetch(server.address("/", "https"), token).document, QByteArray("here"));
  EXPECT_EQ(server.requests().at(0).headers.at("x-tilwin-channel"), "beta");
}

TEST_F(SecureFeedTest, FollowsNoRedirectFromAnEncryptedServerToAPlainOne) {
  trustCertificate();
  WebServer plain([](const WebRequest&) { return WebAnswer{.body = "here"}; });
  WebServer server([&](const WebRequest&) { return redirectTo(plain.address()); }, secureServer());
  EXPECT_EQ(problem(server.address("/", "https")), "the server redirects to an unsafe address");
  EXPECT_EQ(plain.requests().size(), 0);
}

TEST_F(SecureFeedTest, FollowsARedirectFromAPlainServerToAnEncryptedOneWithoutTheHeaders) {
  trustCertificate();
  WebServer secure([](const WebRequest&) { return WebAnswer{.body = "here"}; }, secureServer());
  WebServer server([&](const WebRequest&) { return redirectTo(secure.address("/", "https")); });
  EXPECT_EQ(fetch(server.address(), token).document, QByteArray("here"));
  EXPECT_FALSE(secure.requests().at(0).headers.contains("x-tilwin-channel"));
}

}  // namespace
}  // namespace tilwin::contract
