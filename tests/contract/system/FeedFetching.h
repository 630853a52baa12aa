#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QUrl>
#include <chrono>
#include <optional>
#include <string>

#include "platform/qt/system/FeedFetch.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/system/WebServer.h"
#include "tests/core/EnvironmentVariable.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::contract {

inline const qt::FeedFetch::Headers token{{"X-Tilwin-Channel", "beta"}};

inline WebAnswer redirectTo(const std::string& address, int status = 302) {
  return {.status = status, .headers = {"Location: " + address}};
}

/// Fetches documents and waits for the result.
struct FeedFetching : testing::Test {
  static qt::FeedFetch::Result fetch(const std::string& address, const qt::FeedFetch::Headers& headers = {},
                                     const qt::FeedFetch::Limits& limits = {}) {
    std::optional<qt::FeedFetch::Result> result;
    qt::FeedFetch running(QUrl(QString::fromStdString(address)), headers, limits,
                          [&](const qt::FeedFetch::Result& each) {
                            EXPECT_FALSE(result.has_value()) << "told twice";
                            result = each;
                          });
    EXPECT_FALSE(result.has_value()) << "told before the event loop ran";
    EXPECT_TRUE(runMainLoopUntil([&] { return result.has_value(); }, desktop::startTimeout));
    runMainLoop(std::chrono::milliseconds(10));
    return result.value_or(qt::FeedFetch::Result{});
  }

  /// Why nothing was fetched.
  static std::string problem(const std::string& address, const qt::FeedFetch::Limits& limits = {}) {
    const auto result = fetch(address, {}, limits);
    EXPECT_FALSE(result.document.has_value());
    return result.problem;
  }

  EnvironmentVariable noProxy{"http_proxy", nullptr};
  EnvironmentVariable noSecureProxy{"https_proxy", nullptr};
};

}  // namespace tilwin::contract
