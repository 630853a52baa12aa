#include "tests/macos/c/objects/Values.h"

#include "core/support/Utf8.h"
#include "tests/macos/c/objects/Utf16.h"

namespace tilwin::macos::c {
namespace {

std::string quoted(const std::u16string& text) { return '"' + utf8(text).text + '"'; }

}  // namespace

std::string StringObject::description() const { return "CFString " + quoted(text); }

bool StringObject::equals(const CountedObject& other) const {
  return dynamic_cast<const StringObject&>(other).text == text;
}

std::string DataObject::description() const { return "CFData of " + std::to_string(bytes.size()) + " bytes"; }

ArrayObject::ArrayObject(std::vector<CFTypeRef> of, bool owning) : entries(std::move(of)), isOwning_(owning) {
  if (!isOwning_) return;
  for (const CFTypeRef entry : entries) objects().retain(entry);
}

std::string ArrayObject::description() const { return "CFArray of " + std::to_string(entries.size()); }

void ArrayObject::end() {
  for (const CFTypeRef entry : std::exchange(entries, {})) {
    if (isOwning_) objects().release(entry);
  }
}

DictionaryObject::DictionaryObject(Entries of, bool owningKeys, bool owningValues)
    : entries(std::move(of)), areKeysOwned_(owningKeys), areValuesOwned_(owningValues) {
  for (const auto& [key, value] : entries) {
    if (areKeysOwned_) objects().retain(key);
    if (areValuesOwned_) objects().retain(value);
  }
}

std::string DictionaryObject::description() const {
  return "CFDictionary of " + std::to_string(entries.size());
}

void DictionaryObject::end() {
  for (const auto& [key, value] : std::exchange(entries, {})) {
    if (areKeysOwned_) objects().release(key);
    if (areValuesOwned_) objects().release(value);
  }
}

std::u16string utf16(std::string_view utf8) {
  std::u16string units;
  for (std::size_t at = 0; at < utf8.size();) {
    const Utf8Character character = Utf8::next(utf8, at);
    appendUtf16(units, character.codePoint);
    at += character.size;
  }
  return units;
}

CFStringRef makeString(std::string_view utf8) {
  return static_cast<CFStringRef>(objects().make<StringObject>(utf16(utf8)));
}

CFStringRef constantString(std::string_view utf8) {
  return static_cast<CFStringRef>(objects().makeConstant<StringObject>(utf16(utf8)));
}

std::string utf8Of(CFStringRef string, std::string_view user) {
  const auto* const object = objects().used<StringObject>(string, user);
  return object == nullptr ? std::string() : utf8(object->text).text;
}

}  // namespace tilwin::macos::c
