#pragma once

#include <filesystem>
#include <string>

#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// Waits until a window with this title is shown and has the focus; throws HarnessError if that does not
/// happen.
WindowId waitForTitle(Session& session, const std::string& title);
/// Waits until the window is closed; throws HarnessError if it stays.
void waitForClosing(Session& session, WindowId window);

/// Waits until the program has written this text into a file; throws HarnessError if that does not happen.
void waitForText(Session& session, const std::filesystem::path& file, const std::string& text,
                 Milliseconds timeout = answerTimeout);

/// Types a text of letters, digits, spaces and commas.
void type(Input& input, const std::string& text);

}  // namespace tilwin::desktop
