#include "platform/simulated/SimulatedHotKeys.h"

#include <algorithm>
#include <utility>

namespace tilwin {
namespace {

constexpr std::uint32_t highestKeyCode = 127;
constexpr std::uint32_t allModifiers =
    HotKeySpec::cmd | HotKeySpec::shift | HotKeySpec::option | HotKeySpec::control;

/// Modifier bits of a key event that are not part of a combination.
constexpr std::uint32_t capsLockBit = 0x400;
constexpr std::uint32_t numLockBit = 0x10000;

bool sameCombination(const HotKeySpec& first, const HotKeySpec& second) {
  return first.keyCode == second.keyCode &&
         (first.modifiers & allModifiers) == (second.modifiers & allModifiers);
}

}  // namespace

void SimulatedHotKeys::holdElsewhere(const HotKeySpec& spec) { heldElsewhere_.push_back(spec); }

void SimulatedHotKeys::letGoElsewhere(const HotKeySpec& spec) {
  std::erase_if(heldElsewhere_, [&](const HotKeySpec& held) { return sameCombination(held, spec); });
}

void SimulatedHotKeys::removeKey(std::uint32_t keyCode) { missingKeys_.insert(keyCode); }

void SimulatedHotKeys::setLocks(bool capsLock, bool numLock) {
  locks_ = (capsLock ? capsLockBit : 0) | (numLock ? numLockBit : 0);
}

bool SimulatedHotKeys::keyDown(const HotKeySpec& spec) {
  if (!hasKey(spec.keyCode)) return false;
  const bool repeats = !keysDown_.insert(spec.keyCode).second;
  const Registration* hit = registered({spec.keyCode, spec.modifiers | locks_});
  if (hit == nullptr) return false;
  if (!repeats) deliver(hit->identity.id);
  return true;
}

void SimulatedHotKeys::keyUp(std::uint32_t keyCode) { keysDown_.erase(keyCode); }

bool SimulatedHotKeys::press(const HotKeySpec& spec) {
  const bool taken = keyDown(spec);
  keyUp(spec.keyCode);
  return taken;
}

void SimulatedHotKeys::deliver(std::uint32_t id) {
  // A copy, because the handler may set another one.
  if (const auto handler = handler_) handler(id);
}

std::optional<HotKeys::Reference> SimulatedHotKeys::add(const HotKeySpec& spec,
                                                        const HotKeyIdentity& identity) {
  const bool held = std::any_of(heldElsewhere_.begin(), heldElsewhere_.end(),
                                [&](const HotKeySpec& other) { return sameCombination(other, spec); });
  if (held || registered(spec) != nullptr || !hasKey(spec.keyCode)) return std::nullopt;
  registrations_.push_back({++lastReference_, spec, identity});
  return lastReference_;
}

void SimulatedHotKeys::remove(HotKeys::Reference reference) {
  removals_.push_back(reference);
  std::erase_if(registrations_,
                [&](const Registration& registration) { return registration.reference == reference; });
}

void SimulatedHotKeys::setPressHandler(HotKeys::PressHandler handler) {
  if (handler) ++handlerInstallations_;
  handler_ = std::move(handler);
}

bool SimulatedHotKeys::hasKey(std::uint32_t keyCode) const {
  return keyCode <= highestKeyCode && !missingKeys_.contains(keyCode);
}

const SimulatedHotKeys::Registration* SimulatedHotKeys::registered(const HotKeySpec& spec) const {
  const auto found = std::find_if(
      registrations_.begin(), registrations_.end(),
      [&](const Registration& registration) { return sameCombination(registration.spec, spec); });
  return found == registrations_.end() ? nullptr : &*found;
}

}  // namespace tilwin
