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

/// A private X server on a display number of its own choosing. The home must outlive it.
class XServer {
public:
  /// Xvfb: one screen of a fixed size, no outputs to plug. Throws HarnessError when it does not start.
  static std::unique_ptr<XServer> virtualScreen(const PrivateHome& home, PixelSize size,
                                                const std::vector<std::string>& extraArguments = {});

  /// Xorg with the dummy driver: 16 outputs that can be plugged and unplugged, with the RandR events a real
  /// one gives; the first display is plugged at its start. `largest` bounds the whole screen. Nothing, with
  /// the reason in `whyNot`, when it does not start (Xorg needs root here, and its dummy driver).
  static std::unique_ptr<XServer> dummy(const PrivateHome& home, const std::vector<PluggedDisplay>& displays,
                                        PixelSize largest, std::string& whyNot);

  /// ":N".
  const std::string& display() const { return display_; }
  ChildProcess& process() { return process_; }

  /// The environment a client of this server needs: DISPLAY.
  Environment environment() const;

  /// Plugs and unplugs until exactly these displays are lit, in one go. The change is done when the call
  /// returns, its RandR events sent. Dummy servers only. Throws HarnessError on failure.
  void arrange(const std::vector<PluggedDisplay>& displays);
  /// arrange with one display more (or changed, when that output is lit already), or one fewer.
  void plug(const PluggedDisplay& display);
  void unplug(const std::string& output);
  const std::vector<PluggedDisplay>& displays() const { return displays_; }

  /// Cuts a virtual screen into monitors side by side, left to right, of these widths, by RandR 1.5 monitor
  /// objects: clients see several monitors, though no output changes. Throws HarnessError on failure.
  void splitIntoMonitors(const std::vector<int>& widths);

  /// Sets the keyboard's layouts, e.g. "us,de" (XKB rules), as a settings panel would.
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
