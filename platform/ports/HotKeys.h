#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "core/settings/HotKeySpec.h"

namespace tilwin {

/// Identifies one registered hot key when the desktop reports a press.
struct HotKeyIdentity {
  std::uint32_t signature = 0;  ///< four-character code of the program, big-endian
  std::uint32_t id = 0;

  bool operator==(const HotKeyIdentity&) const = default;
};

/// System-wide hot keys: key combinations that reach this program whichever window has the keyboard focus.
class HotKeys {
public:
  using Reference = std::uint64_t;
  using PressHandler = std::function<void(std::uint32_t id)>;

  HotKeys() = default;
  HotKeys(const HotKeys&) = delete;
  HotKeys& operator=(const HotKeys&) = delete;
  virtual ~HotKeys() = default;

  /// Registers the combination. Returns nothing if the desktop refuses: another program holds it, or this
  /// keyboard has no such key.
  [[nodiscard]] virtual std::optional<Reference> add(const HotKeySpec& spec,
                                                     const HotKeyIdentity& identity) = 0;
  /// Unregisters the combination. Ignores a reference that is not registered.
  virtual void remove(Reference reference) = 0;
  /// Sets the only handler of presses. It is called once for each physical press, never for auto-repeat. The
  /// key event never reaches the focused window, whatever the handler does.
  virtual void setPressHandler(PressHandler handler) = 0;
  /// Sets the only handler of changes after which other combinations may be free or refused than before:
  /// another keyboard, or another window manager. What is registered should be registered again. On a desktop
  /// where nothing of that happens, it is never called.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
};

}  // namespace tilwin
