#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "core/settings/HotKeySpec.h"

namespace tilwin {

/// How a desktop names one registered hot key when it reports a press.
struct HotKeyIdentity {
  std::uint32_t signature = 0;  ///< four-character code of the program, big-endian
  std::uint32_t id = 0;

  bool operator==(const HotKeyIdentity&) const = default;
};

/// System-wide hot keys: key combinations that reach this program whatever has the keyboard focus.
class HotKeys {
public:
  using Reference = std::uint64_t;
  using PressHandler = std::function<void(std::uint32_t id)>;

  HotKeys() = default;
  HotKeys(const HotKeys&) = delete;
  HotKeys& operator=(const HotKeys&) = delete;
  virtual ~HotKeys() = default;

  /// Asks the desktop for the combination. Nothing when it refuses: another program holds it, or this
  /// keyboard has no such key.
  [[nodiscard]] virtual std::optional<Reference> add(const HotKeySpec& spec,
                                                     const HotKeyIdentity& identity) = 0;
  /// Gives the combination back; a reference that is not registered is ignored.
  virtual void remove(Reference reference) = 0;
  /// The one receiver of presses: called once for each physical press, never for auto-repeat. The key event
  /// is consumed whatever the handler does.
  virtual void setPressHandler(PressHandler handler) = 0;
};

}  // namespace tilwin
