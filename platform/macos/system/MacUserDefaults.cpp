#include "platform/macos/system/MacUserDefaults.h"

#include <CoreFoundation/CoreFoundation.h>

#include "platform/macos/support/CFOwned.h"
#include "platform/macos/support/CFText.h"

namespace tilwin::macos {
namespace {

CFOwned<CFPropertyListRef> storedValue(CFStringRef key) {
  return created(CFPreferencesCopyAppValue(key, kCFPreferencesCurrentApplication));
}

CFOwned<CFDataRef> bytes(std::string_view blob) {
  return created(CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(blob.data()),
                              static_cast<CFIndex>(blob.size())));
}

bool store(CFStringRef key, std::string_view blob) {
  const auto before = storedValue(key);
  CFPreferencesSetAppValue(key, bytes(blob).get(), kCFPreferencesCurrentApplication);
  if (CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication) != 0) return true;
  // Otherwise the new value stays in the cache and is written later.
  CFPreferencesSetAppValue(key, before.get(), kCFPreferencesCurrentApplication);
  return false;
}

}  // namespace

std::optional<std::string> MacUserDefaults::data(std::string_view key) {
  const auto name = cfText(key);
  if (!name) return std::nullopt;
  const auto value = storedValue(name.get());
  const auto blob = asType<CFDataRef>(value.get(), CFDataGetTypeID());
  if (blob == nullptr) return std::nullopt;
  return std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(blob)),
                     static_cast<std::size_t>(CFDataGetLength(blob)));
}

void MacUserDefaults::setData(std::string_view key, std::string_view blob) {
  const auto name = cfText(key);
  noteOutcome(name && store(name.get(), blob));
}

std::optional<bool> MacUserDefaults::flag(std::string_view domain, std::string_view key) {
  const auto owner = cfText(domain);
  const auto name = cfText(key);
  if (!owner || !name) return std::nullopt;
  CFPreferencesAppSynchronize(owner.get());
  const auto value = created(CFPreferencesCopyAppValue(name.get(), owner.get()));
  const auto flag = asType<CFBooleanRef>(value.get(), CFBooleanGetTypeID());
  if (flag == nullptr) return std::nullopt;
  return CFBooleanGetValue(flag) != 0;
}

void MacUserDefaults::noteOutcome(bool written) {
  if (!written && !failing_) log_.write("Tilwin: settings cannot be saved in the user defaults");
  failing_ = !written;
}

}  // namespace tilwin::macos
