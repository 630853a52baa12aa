#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tests/desktop/DefaultShortcuts.h"
#include "tests/desktop/TilwinProcess.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// The command-line arguments of this run.
struct Arguments {
  std::filesystem::path tilwin;
  Manager manager = Manager::openbox;
  std::filesystem::path pictures;  ///< folder for the screenshots of tests
};

[[nodiscard]] Arguments& arguments();

inline constexpr Rect leftHalf{0, 0, 960, 1080};
inline constexpr Rect rightHalf{960, 0, 960, 1080};

/// A desktop of 1920×1080 points with Tilwin running, shared by the tests of a suite: Tilwin must keep
/// working from test to test.
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
  /// Writes settings (JSON) into Tilwin's file and restarts it.
  static void restartTilwinWith(const std::string& settings);
  /// The path of that file.
  static std::filesystem::path settingsFolder();

  static void press(const std::string& chord) { session_->input().press(chord); }

  /// Opens a window and gives it the focus.
  static void focus(WindowId window);
  /// Opens a window that has the focus, is at `startFrame` and has not been moved by Tilwin.
  static void focusAtStart(WindowId window);

  /// As a person does it, who moves a window only after seeing it stand still.
  static void placeByHand(WindowId window, const Rect& frame);

  /// The frame of a window after all movement has stopped.
  static Rect settled(WindowId window);
  /// Waits until the window is at this frame, within the tolerance, and checks that it stays there.
  static testing::AssertionResult stands(WindowId window, const Rect& frame, double tolerance = 0);
  /// Whether Tilwin still responds to a shortcut.
  static testing::AssertionResult serves();

private:
  static std::unique_ptr<Session> session_;
  static std::unique_ptr<TilwinProcess> tilwin_;
};

[[nodiscard]] std::string text(const Rect& frame);

}  // namespace tilwin::desktop
