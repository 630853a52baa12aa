#pragma once

#include <string>
#include <vector>

#include "tests/desktop/harness/Keyboard.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::desktop {

/// Generates keyboard and pointer input by the XTEST extension, over its own connection. The server has
/// processed each call when it returns. The destructor releases everything that is still pressed.
class Input {
public:
  explicit Input(const std::string& display);
  ~Input();
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  /// Presses and releases a combination such as "Control+Alt+Left". Returns the time just before the last key
  /// press.
  Clock::time_point press(const std::string& chord);
  /// The same with the last key given by its position, whatever is printed on it:
  /// pressAt("AC01", "Control+Alt").
  Clock::time_point pressAt(const std::string& position, const std::string& modifiers = "");
  /// The same with the last key given by its keycode.
  Clock::time_point pressKeycode(xcb_keycode_t key, const std::string& modifiers = "");

  void keyDown(const std::string& name);
  void keyUp(const std::string& name);

  /// Presses the lock key if the lock is not in this state; throws HarnessError if that fails.
  void setCapsLock(bool on);
  void setNumLock(bool on);
  bool capsLock();
  bool numLock();

  void movePointer(PixelPoint to);
  PixelPoint pointer();
  /// Swaps the first and third button for all programs, like left-handed settings, or swaps them back.
  void setLeftHanded(bool on);
  void buttonDown(int button = 1);
  void buttonUp(int button = 1);
  void click(PixelPoint at, int button = 1);
  /// Moves in a straight line, in this many steps of this duration.
  void glide(PixelPoint to, int steps = 20, Milliseconds step = Milliseconds{8});
  /// Moves the pointer there and presses the button, as soon as a window is there: kwin adds the resize strip
  /// of a borderless window shortly after the window. Waits long enough after the last press not to make a
  /// double click.
  void takeHold(PixelPoint at, int button = 1);
  /// Glides there and slows down at the end: the last moves are short and far enough apart for a program that
  /// samples the pointer.
  void comeToRest(PixelPoint at);
  /// Presses, glides and releases.
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
