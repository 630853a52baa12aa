#pragma once

#include <string>
#include <vector>

#include "tests/desktop/harness/Keyboard.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::desktop {

/// A person's hands: keys and pointer by the XTEST extension, on a connection of its own. Each call has been
/// taken by the server when it returns. The destructor lets go of everything still held.
class Input {
public:
  explicit Input(const std::string& display);
  ~Input();
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  /// Presses and lets go of a combination: "Control+Alt+Left". Returns the moment just before the last key
  /// went down.
  Clock::time_point press(const std::string& chord);
  /// The same with the last key given by its position, whatever is printed on it:
  /// pressAt("AC01", "Control+Alt").
  Clock::time_point pressAt(const std::string& position, const std::string& modifiers = "");
  /// The same with the last key given by its keycode.
  Clock::time_point pressKeycode(xcb_keycode_t key, const std::string& modifiers = "");

  void keyDown(const std::string& name);
  void keyUp(const std::string& name);

  /// Switches a lock by pressing its key when it is not as wanted; throws HarnessError when that fails.
  void setCapsLock(bool on);
  void setNumLock(bool on);
  bool capsLock();
  bool numLock();

  void movePointer(PixelPoint to);
  PixelPoint pointer();
  /// Exchanges what the first and the third button do, for all programs, as a left-handed person's settings
  /// would; and back.
  void setLeftHanded(bool on);
  void buttonDown(int button = 1);
  void buttonUp(int button = 1);
  void click(PixelPoint at, int button = 1);
  /// Moves in a straight line like a hand: in so many steps, each taking so long.
  void glide(PixelPoint to, int steps = 20, Milliseconds step = Milliseconds{8});
  /// Points there and presses, as soon as a window is there: kwin lays the strip by which a window without
  /// borders is resized a moment after the window. Never so soon after another press that the two count as a
  /// double click.
  void takeHold(PixelPoint at, int button = 1);
  /// Glides there and comes to rest as a hand does: the last moves are short ones, with time between them
  /// for a program that looks at the pointer only now and then.
  void comeToRest(PixelPoint at);
  /// Takes hold, glides, lets go.
  void drag(PixelPoint from, PixelPoint to, int steps = 20, Milliseconds step = Milliseconds{8});

  Keyboard& keyboard() { return keyboard_; }

private:
  void key(xcb_keycode_t keycode, bool down);
  Clock::time_point pressKeys(const std::vector<xcb_keycode_t>& keys);
  void setLock(const char* keyName, bool on);
  bool locked(std::uint16_t mask);

  XConnection connection_;
  Keyboard keyboard_;
  std::vector<xcb_keycode_t> heldKeys_;
  std::vector<std::uint8_t> heldButtons_;
  Clock::time_point lastButtonDown_{};
};

}  // namespace tilwin::desktop
