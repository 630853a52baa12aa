#include "app/keys/HotKeyCenter.h"

#include <limits>
#include <utility>

#include "core/support/Fatal.h"

namespace tilwin {
namespace {

constexpr std::uint32_t fourCharacterCode(char first, char second, char third, char fourth) {
  const auto byte = [](char character) { return std::uint32_t{static_cast<unsigned char>(character)}; };
  return byte(first) << 24 | byte(second) << 16 | byte(third) << 8 | byte(fourth);
}

constexpr std::uint32_t signature = fourCharacterCode('T', 'W', 'F', '1');

}  // namespace

HotKeyCenter::HotKeyCenter(HotKeys& hotKeys, MainQueue& mainQueue)
    : hotKeys_(hotKeys), mainQueue_(mainQueue), self_(std::make_shared<HotKeyCenter*>(this)) {}

HotKeyCenter::~HotKeyCenter() {
  unregisterAll();
  if (handlerInstalled_) hotKeys_.setPressHandler(nullptr);
}

HotKeyCenter::OwnerSet HotKeyCenter::registerShortcuts(const TilwinSettings& settings) {
  OwnerSet refused;
  unregisterAll();
  installHandler();
  std::uint32_t id = 1;
  for (const auto& [owner, spec] : settings.shortcutsInForce()) {
    if (const auto reference = hotKeys_.add(spec, {signature, id})) {
      refs_.push_back(*reference);
      targets_.emplace(id, owner);
    } else {
      refused.insert(owner);
    }
    id = idAfter(id);
  }
  return refused;
}

void HotKeyCenter::unregisterAll() {
  for (const HotKeys::Reference reference : refs_) hotKeys_.remove(reference);
  refs_.clear();
  targets_.clear();
}

std::uint32_t HotKeyCenter::idAfter(std::uint32_t id) {
  if (id == std::numeric_limits<std::uint32_t>::max()) fatal("Out of hot-key ids.");
  return id + 1;
}

void HotKeyCenter::installHandler() {
  if (std::exchange(handlerInstalled_, true)) return;
  hotKeys_.setPressHandler([this](std::uint32_t id) { pressed(id); });
}

void HotKeyCenter::pressed(std::uint32_t id) {
  const auto target = targets_.find(id);
  if (target == targets_.end() || waiting_ == mostWaiting) return;
  ++waiting_;
  mainQueue_.post([weak = std::weak_ptr(self_), owner = target->second, received = mainQueue_.uptime()] {
    auto self = weak.lock();
    if (!self) return;
    --(*self)->waiting_;
    // A copy, as the callback may assign `onTarget` while it runs.
    const auto receiver = (*self)->onTarget;
    self.reset();
    if (receiver) receiver(owner);
    if (const auto still = weak.lock()) (*still)->note({owner, received, (*still)->mainQueue_.uptime()});
  });
}

void HotKeyCenter::note(const Press& press) {
  presses_.push_back(press);
  if (presses_.size() > mostPresses) presses_.pop_front();
}

}  // namespace tilwin
