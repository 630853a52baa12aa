#include <CoreFoundation/CoreFoundation.h>

#include <string>

#include "tests/macos/c/objects/Utf16.h"
#include "tests/macos/c/objects/Values.h"
#include "tests/macos/c/preferences/StoredPreferences.h"

namespace {

using namespace tilwin::macos::c;

struct PropertyMaker {
  CFPropertyListRef operator()(const StoredBytes& of) const { return objects().make<DataObject>(of.bytes); }
  CFPropertyListRef operator()(const std::string& of) const { return makeString(of); }
  CFPropertyListRef operator()(bool of) const { return of ? kCFBooleanTrue : kCFBooleanFalse; }
  CFPropertyListRef operator()(double of) const { return objects().make<NumberObject>(of); }
};

/// Nothing for what no property list holds, or none here; that is a finding.
std::optional<StoredValue> storedValueOf(CFPropertyListRef property) {
  auto* const used = objects().used(property, "CFPreferencesSetAppValue");
  if (const auto* data = dynamic_cast<DataObject*>(used)) return StoredBytes{data->bytes};
  if (const auto* string = dynamic_cast<StringObject*>(used)) return utf8(string->text).text;
  if (const auto* flag = dynamic_cast<BooleanObject*>(used)) return flag->isOn;
  if (const auto* number = dynamic_cast<NumberObject*>(used)) return number->number;
  if (used != nullptr) objects().note("CFPreferencesSetAppValue", "cannot store", used->description());
  return std::nullopt;
}

std::string domainOf(CFStringRef applicationID, const char* user) {
  const std::string named = utf8Of(applicationID, user);
  return applicationID == kCFPreferencesCurrentApplication ? StoredPreferences::ownDomain : named;
}

}  // namespace

// NOLINTBEGIN(readability-implicit-bool-conversion): the Boolean of the system is a number.
extern "C" {

const CFStringRef kCFPreferencesCurrentApplication = constantString("kCFPreferencesCurrentApplication");

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef applicationID) {
  const std::string name = utf8Of(key, "CFPreferencesCopyAppValue");
  const std::string domain = domainOf(applicationID, "CFPreferencesCopyAppValue");
  auto* const preferences = StoredPreferences::current();
  const auto value = preferences == nullptr ? std::nullopt : preferences->value(domain, name);
  return value ? std::visit(PropertyMaker{}, *value) : nullptr;
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef applicationID) {
  const std::string name = utf8Of(key, "CFPreferencesSetAppValue");
  const std::string domain = domainOf(applicationID, "CFPreferencesSetAppValue");
  auto* const preferences = StoredPreferences::current();
  if (preferences == nullptr) return;
  const auto stored = value == nullptr ? std::nullopt : storedValueOf(value);
  if (value == nullptr || stored) preferences->set(domain, name, stored);
}

Boolean CFPreferencesAppSynchronize(CFStringRef applicationID) {
  const std::string domain = domainOf(applicationID, "CFPreferencesAppSynchronize");
  auto* const preferences = StoredPreferences::current();
  return preferences != nullptr && preferences->synchronize(domain);
}

}  // extern "C"
// NOLINTEND(readability-implicit-bool-conversion)
