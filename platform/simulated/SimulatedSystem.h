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
#include "platform/ports/DesktopReport.h"
#include "platform/ports/DesktopWords.h"
#include "platform/ports/FileViewer.h"
#include "platform/ports/LoginService.h"
#include "platform/ports/Overlay.h"
#include "platform/ports/ScreenChanges.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/SystemReport.h"
#include "platform/ports/UserDefaults.h"

/// The small ports of a simulated desktop, in memory.

namespace tilwin {

/// A system log that keeps its lines for tests to read.
class SimulatedLog final : public SystemLog {
public:
  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

private:
  void write(std::string_view line) override { lines_.emplace_back(line); }

  std::vector<std::string> lines_;
};

/// An application support folder chosen by the test, created on request; or none.
class SimulatedBundle final : public Bundle {
public:
  explicit SimulatedBundle(std::optional<std::filesystem::path> folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::optional<std::filesystem::path> applicationSupport() override {
    std::error_code refusal;
    if (folder_) std::filesystem::create_directories(*folder_, refusal);
    return refusal ? std::nullopt : folder_;
  }
  [[nodiscard]] Information information() override { return built; }

  Information built{};  ///< the information dictionary

private:
  std::optional<std::filesystem::path> folder_;
};

/// The stored settings of a simulated user. Writes can be made to fail.
class SimulatedUserDefaults final : public UserDefaults {
public:
  using Blobs = std::map<std::string, std::string, std::less<>>;

  /// Everything that is stored.
  [[nodiscard]] const Blobs& blobs() const { return blobs_; }
  /// Stores a blob from outside the program under test.
  void store(std::string_view key, std::string_view blob) { blobs_.insert_or_assign(std::string(key), blob); }
  /// Whether the program's writes fail from now on.
  void setRefusing(bool refusing) { refusing_ = refusing; }
  /// Sets a preference of another program.
  void setFlag(std::string domain, std::string key, bool on) {
    flags_.insert_or_assign({std::move(domain), std::move(key)}, on);
  }
  /// How often the program has written, including writes that failed.
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
  std::optional<bool> flag(std::string_view domain, std::string_view key) override {
    const auto found = flags_.find({std::string(domain), std::string(key)});
    return found == flags_.end() ? std::nullopt : std::optional(found->second);
  }

  Blobs blobs_;
  std::map<std::pair<std::string, std::string>, bool> flags_;
  bool refusing_ = false;
  int writeCount_ = 0;
};

/// A user who trusts this program unless the test changes that, and never answers `ask`.
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

/// Remembers what the program showed to the user in other programs.
class SimulatedFileViewer final : public FileViewer {
public:
  [[nodiscard]] const std::vector<std::string>& opened() const { return opened_; }
  [[nodiscard]] const std::vector<std::filesystem::path>& revealed() const { return revealed_; }

private:
  void openURL(const std::string& address) override { opened_.push_back(address); }
  void reveal(const std::filesystem::path& file) override { revealed_.push_back(file); }

  std::vector<std::string> opened_;
  std::vector<std::filesystem::path> revealed_;
};

/// A login service that can refuse, and can ask for the user's approval.
class SimulatedLoginService final : public LoginService {
public:
  /// From now on requests fail with this description and leave this status; nothing lets them succeed.
  void refuse(std::optional<std::string> error, Status status = Status::notFound) {
    error_ = std::move(error);
    if (error_) status_ = status;
  }
  /// From now on a request to register succeeds, but has no effect until the user has approved it.
  void demandApproval() { granted_ = Status::requiresApproval; }

  [[nodiscard]] Status status() override { return status_; }

private:
  std::optional<std::string> registerProgram() override { return become(granted_); }
  std::optional<std::string> unregisterProgram() override { return become(Status::notRegistered); }
  std::optional<std::string> become(Status status) {
    if (!error_) status_ = status;
    return error_;
  }

  std::optional<std::string> error_;
  Status granted_ = Status::enabled;
  Status status_ = Status::notRegistered;
};

/// Words set by a test; those of macOS at first.
class SimulatedWords final : public DesktopWords {
public:
  Wording spoken{};

private:
  [[nodiscard]] Wording wording() const override { return spoken; }
};

/// What a test has a desktop and its system tell of themselves.
class SimulatedDesktopReport final : public DesktopReport {
public:
  DesktopFacts told{};

private:
  [[nodiscard]] DesktopFacts facts() override { return told; }
};

class SimulatedSystemReport final : public SystemReport {
public:
  SystemFacts told{};

private:
  [[nodiscard]] SystemFacts facts() override { return told; }
};

/// Reports changes of the displays of a simulated desktop.
class SimulatedScreenChanges final : public ScreenChanges {
public:
  /// Calls the handler, whether the displays have changed or not.
  void tell() {
    // A copy, because the handler may set another one.
    if (const auto handler = handler_) handler();
  }
  [[nodiscard]] bool hasHandler() const { return handler_ != nullptr; }

private:
  void onChange(std::function<void()> handler) override { handler_ = std::move(handler); }

  std::function<void()> handler_;
};

/// An overlay that only remembers its frame, in points.
class SimulatedOverlay final : public Overlay {
public:
  /// The frame at which it is shown; nothing if it is hidden.
  [[nodiscard]] const std::optional<Rect>& visible() const { return visible_; }
  /// How often it was shown with a placeable frame.
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
