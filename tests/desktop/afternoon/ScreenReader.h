#pragma once

#include <string>
#include <vector>

#include "tests/desktop/harness/Pixels.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// What a screen reader tells of a control.
struct Accessible {
  Rect area;  ///< in pixels of the screen
  std::string description;
  std::string states;  ///< of FOCUSED, CHECKED, SELECTED and ENABLED those that hold

  [[nodiscard]] PixelPoint centre() const;
  [[nodiscard]] bool is(const std::string& state) const { return states.find(state) != std::string::npos; }
};

/// Reads the windows of Tilwin as assistive technology does (AT-SPI), from a program of its own.
class ScreenReader {
public:
  explicit ScreenReader(Session& session) : session_(session) {}

  /// Waits for the control with this role, name and these states. Throws HarnessError on timeout.
  [[nodiscard]] Accessible find(const std::string& role, const std::string& name,
                                const std::vector<std::string>& states = {});
  /// Whether such a control is there now.
  [[nodiscard]] bool sees(const std::string& role, const std::string& name,
                          const std::vector<std::string>& states = {});

private:
  /// The lines the reader printed; nothing if there is no such control.
  std::string read(Milliseconds timeout, const std::string& role, const std::string& name,
                   const std::vector<std::string>& states);

  Session& session_;
};

}  // namespace tilwin::desktop
