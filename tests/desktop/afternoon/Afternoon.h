#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/afternoon/SavedFiles.h"
#include "tests/desktop/afternoon/ScreenReader.h"
#include "tests/desktop/harness/Panel.h"
#include "tests/desktop/harness/StatusIcon.h"

namespace tilwin::desktop {

inline constexpr ExitStatus endedWell{.code = 0, .signal = std::nullopt};

/// A desktop with a panel, and a person who uses Tilwin on it by its menu, its dialogs and its settings
/// window. What does not come about throws HarnessError.
class Afternoon {
public:
  explicit Afternoon(const SessionOptions& options = {}, Panel panel = Panel::tint2);

  Session& session() { return session_; }
  Desktop& desktop() { return session_.desktop(); }
  Input& input() { return session_.input(); }
  StatusIcon& icon() { return icon_; }
  ScreenReader& reader() { return reader_; }

  /// Starts Tilwin and waits until its shortcuts work and its icon is there.
  void startTilwin();
  /// Starts it and does not wait.
  void launchTilwin();
  ChildProcess& tilwin() { return tilwin_; }
  [[nodiscard]] std::string log() const { return tilwin_.output(); }
  /// How it ended; nothing if it does not end.
  std::optional<ExitStatus> tilwinEnds();

  /// Opens the prompt of this menu entry, types the answer and accepts it.
  void answer(const MenuPath& entry, const std::string& text);
  void type(const std::string& text);

  /// Opens the settings window, as a person does who starts the program once more, at a section.
  void openSettings();
  void openSettings(const std::string& section);
  void closeSettings();
  /// Clicks on a control of the settings window.
  void click(const std::string& role, const std::string& name);

  /// Waits until Tilwin shows this state, and throws if it ends or takes too long.
  void waitFor(const Predicate& condition, const std::string& what, Milliseconds timeout = answerTimeout);
  /// The part of the screen that is not the panel's.
  Rect room();
  void placeByHand(WindowId window, const Rect& frame);
  /// Whether the window comes to this frame, as near as its own steps in size allow.
  testing::AssertionResult stands(WindowId window, const Rect& frame);

private:
  /// The open window of Tilwin with this title.
  std::optional<WindowId> windowTitled(const std::string& title);

  Session session_;
  ChildProcess panel_;
  StatusIcon icon_;
  ScreenReader reader_;
  ChildProcess tilwin_;
  int starts_ = 0;
};

}  // namespace tilwin::desktop
