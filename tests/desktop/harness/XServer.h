#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/Pixels.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

/// A display plugged into a dummy server: its output (DUMMY0 to DUMMY15), mode and place.
struct PluggedDisplay {
  std::string output = "DUMMY0";
  PixelSize mode{1920, 1080};
  PixelPoint position = {};
  bool primary = false;
  bool operator==(const PluggedDisplay&) const = default;
};

/// A private X server on a free display number. The home must outlive it.
class XServer {
public:
  /// Xvfb: one screen of a fixed size, without outputs. Throws HarnessError if it does not start.
  static std::unique_ptr<XServer> virtualScreen(const PrivateHome& home, PixelSize size,
                                                const std::vector<std::string>& extraArguments = {});

  /// Xorg with the dummy driver: 16 outputs that can be plugged and unplugged, with the same RandR events as
  /// real ones. The first display is plugged at start. `largest` limits the whole screen. Returns null and
  /// the reason in `whyNot` if it does not start (Xorg needs root and its dummy driver).
  static std::unique_ptr<XServer> dummy(const PrivateHome& home, const std::vector<PluggedDisplay>& displays,
                                        PixelSize largest, std::string& whyNot);

  /// ":N".
  const std::string& display() const { return display_; }
  ChildProcess& process() { return process_; }

  /// The environment of this server's clients: DISPLAY.
  Environment environment() const;

  /// Plugs and unplugs displays in one step, so that exactly these are active. When the call returns, the
  /// change is complete and its RandR events are sent. Dummy servers only. Throws HarnessError on failure.
  void arrange(const std::vector<PluggedDisplay>& displays);
  /// Calls arrange with this display added (or changed, if its output is active), or removed.
  void plug(const PluggedDisplay& display);
  void unplug(const std::string& output);
  const std::vector<PluggedDisplay>& displays() const { return displays_; }

  /// Splits a virtual screen into RandR 1.5 monitors of these widths, left to right. Clients see several
  /// monitors, though no output changes. Throws HarnessError on failure.
  void splitIntoMonitors(const std::vector<int>& widths);

  /// Sets the keyboard layouts, such as "us,de" (XKB rules).
  void setKeyboardLayout(const std::string& layouts);

private:
  XServer(const PrivateHome& home, ChildProcess process, std::string display, PixelSize size);
  void makeMode(const PluggedDisplay& display);
  void run(const std::vector<std::string>& argv);

  const PrivateHome& home_;
  ChildProcess process_;
  std::string display_;
  PixelSize size_;
  std::vector<PluggedDisplay> displays_;
  std::vector<std::string> modes_;
  std::vector<std::string> addedModes_;
  std::size_t splits_ = 0;
};

}  // namespace tilwin::desktop
