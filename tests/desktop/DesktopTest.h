#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tests/desktop/DefaultShortcuts.h"
#include "tests/desktop/TilwinProcess.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// What this run of the test program was asked to test with.
struct Arguments {
  std::filesystem::path tilwin;
  Manager manager = Manager::openbox;
  std::filesystem::path pictures;  ///< where tests that take pictures keep them
};

[[nodiscard]] Arguments& arguments();

inline constexpr Rect leftHalf{0, 0, 960, 1080};
inline constexpr Rect rightHalf{960, 0, 960, 1080};

/// One desktop of 1920×1080 points with Tilwin running, shared by the tests of a suite: whatever one test
/// does to it, Tilwin has to serve the next.
class DesktopTest : public testing::Test {
public:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

protected:
  void TearDown() override;

  static Session& session() { return *session_; }
  static Desktop& desktop() { return session_->desktop(); }
  static TilwinProcess& tilwin() { return *tilwin_; }
  static void endTilwin() { tilwin_.reset(); }
  static void restartTilwin();
  /// Restarts Tilwin on settings (JSON) that somebody wrote into its file.
  static void restartTilwinWith(const std::string& settings);
  /// Where it keeps them.
  static std::filesystem::path settingsFolder();

  static void press(const std::string& chord) { session_->input().press(chord); }

  /// A window with the focus.
  static void focus(WindowId window);
  /// A window with the focus, its frame at `startFrame`, that Tilwin has not moved yet.
  static void focusAtStart(WindowId window);

  /// As a person does it, who moves a window only after seeing it stand still.
  static void placeByHand(WindowId window, const Rect& frame);

  /// The frame that a window has once everything has stopped moving.
  static Rect settled(WindowId window);
  /// Whether the frame comes to be that, within the tolerance, and stays.
  static testing::AssertionResult stands(WindowId window, const Rect& frame, double tolerance = 0);
  /// Whether Tilwin still does what it is for.
  static testing::AssertionResult serves();

private:
  static std::unique_ptr<Session> session_;
  static std::unique_ptr<TilwinProcess> tilwin_;
};

[[nodiscard]] std::string text(const Rect& frame);

}  // namespace tilwin::desktop
