#include "tests/macos/c/keyboard/CarbonKeyboard.h"

#include <algorithm>
#include <utility>

#include "core/support/Fatal.h"
#include "tests/macos/c/keyboard/EventManager.h"

namespace tilwin::macos::c {
namespace {

CarbonKeyboard* keyboard = nullptr;

constexpr std::uint32_t capsLockBit = 0x400;
constexpr std::uint32_t numLockBit = 0x10000;

}  // namespace

CarbonKeyboard::CarbonKeyboard() {
  if (keyboard != nullptr) fatal("The keyboards of two tests at once.");
  keyboard = this;
}

CarbonKeyboard::~CarbonKeyboard() { keyboard = nullptr; }

CarbonKeyboard* CarbonKeyboard::current() { return keyboard; }

void CarbonKeyboard::keyDown(const HotKeySpec& spec) {
  const bool repeats = !keysDown_.insert(spec.keyCode).second;
  const auto identity = EventManager::shared().identityOf({spec.keyCode, spec.modifiers | locks_});
  if (identity && !repeats) post(identity);
}

void CarbonKeyboard::press(const HotKeySpec& spec) {
  keyDown(spec);
  keyUp(spec.keyCode);
}

void CarbonKeyboard::setLocks(bool capsLock, bool numLock) {
  locks_ = (capsLock ? capsLockBit : 0) | (numLock ? numLockBit : 0);
}

void CarbonKeyboard::letGoElsewhere(const HotKeySpec& spec) { std::erase(heldElsewhere_, spec); }

void CarbonKeyboard::runEventLoop() {
  while (!pending_.empty()) {
    const auto identity = pending_.front();
    pending_.erase(pending_.begin());
    answers_.push_back(EventManager::shared().send({kEventClassKeyboard, kEventHotKeyPressed, identity}));
  }
}

std::vector<OSStatus> CarbonKeyboard::takeAnswers() { return std::exchange(answers_, {}); }

bool CarbonKeyboard::isHeldElsewhere(const HotKeySpec& spec) const {
  return std::find(heldElsewhere_.begin(), heldElsewhere_.end(), spec) != heldElsewhere_.end();
}

}  // namespace tilwin::macos::c
