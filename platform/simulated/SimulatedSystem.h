#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "core/geometry/Rect.h"
#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/Overlay.h"
#include "platform/ports/ScreenChanges.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/UserDefaults.h"

/// The small ports of a simulated desktop, each a few lines in memory.

namespace tilwin {

/// A system log that keeps its lines.
class SimulatedLog final : public SystemLog {
public:
  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

private:
  void write(std::string_view line) override { lines_.emplace_back(line); }

  std::vector<std::string> lines_;
};

/// A user whose files lie in a folder of the test's choice, or who has no place for files.
class SimulatedBundle final : public Bundle {
public:
  explicit SimulatedBundle(std::optional<std::filesystem::path> folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::optional<std::filesystem::path> applicationSupport() override {
    std::error_code refusal;
    if (folder_) std::filesystem::create_directories(*folder_, refusal);
    return refusal ? std::nullopt : folder_;
  }

private:
  std::optional<std::filesystem::path> folder_;
};

/// Settings of a simulated user, on a disk that may be full.
class SimulatedUserDefaults final : public UserDefaults {
public:
  using Blobs = std::map<std::string, std::string, std::less<>>;

  /// What is stored.
  [[nodiscard]] const Blobs& blobs() const { return blobs_; }
  /// Puts a blob there by another hand than the program's.
  void store(std::string_view key, std::string_view blob) { blobs_.insert_or_assign(std::string(key), blob); }
  /// From now on the program's writes fail, or work again.
  void setRefusing(bool refusing) { refusing_ = refusing; }
  /// How often the program has written, refused or not.
  [[nodiscard]] int writeCount() const { return writeCount_; }

private:
  std::optional<std::string> data(std::string_view key) override {
    const auto found = blobs_.find(key);
    return found == blobs_.end() ? std::nullopt : std::optional(found->second);
  }
  void setData(std::string_view key, std::string_view blob) override {
    ++writeCount_;
    if (!refusing_) store(key, blob);
  }

  Blobs blobs_;
  bool refusing_ = false;
  int writeCount_ = 0;
};

/// A user who trusts this program until told otherwise, and who answers no question.
class SimulatedTrust final : public AccessibilityTrust {
public:
  void setTrusted(bool trusted) { trusted_ = trusted; }
  /// How often the user has been asked.
  [[nodiscard]] int askCount() const { return askCount_; }

private:
  bool isTrusted() override { return trusted_; }
  void ask() override { ++askCount_; }

  bool trusted_ = true;
  int askCount_ = 0;
};

/// Tells of changes of a simulated desktop's displays.
class SimulatedScreenChanges final : public ScreenChanges {
public:
  /// The displays have changed, or the desktop says so without cause.
  void tell() {
    // A copy, as the handler may install another one.
    if (const auto handler = handler_) handler();
  }
  [[nodiscard]] bool hasHandler() const { return handler_ != nullptr; }

private:
  void onChange(std::function<void()> handler) override { handler_ = std::move(handler); }

  std::function<void()> handler_;
};

/// An overlay that nobody sees but tests.
class SimulatedOverlay final : public Overlay {
public:
  /// Where it is, while it is shown.
  [[nodiscard]] const std::optional<Rect>& visible() const { return visible_; }
  /// How often it has been put somewhere.
  [[nodiscard]] int showCount() const { return showCount_; }

private:
  void showAt(const Rect& frame) override {
    visible_ = frame;
    ++showCount_;
  }
  void hide() override { visible_.reset(); }

  std::optional<Rect> visible_;
  int showCount_ = 0;
};

}  // namespace tilwin
