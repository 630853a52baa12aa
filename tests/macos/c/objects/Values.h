#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/macos/c/objects/CountedObjects.h"

/// The objects of Core Foundation, and how tests make and read them without the functions that adapters use.

namespace tilwin::macos::c {

enum class ValueType : CFTypeID {
  string = 7,
  dictionary = 18,
  array = 19,
  data = 20,
  boolean = 21,
  number = 22
};

class StringObject final : public CountedObject {
public:
  explicit StringObject(std::u16string units) : text(std::move(units)) {}

  [[nodiscard]] CFTypeID type() const override { return static_cast<CFTypeID>(ValueType::string); }
  [[nodiscard]] std::string description() const override;
  [[nodiscard]] bool equals(const CountedObject& other) const override;
  [[nodiscard]] std::size_t hash() const override { return std::hash<std::u16string>{}(text); }
  void end() override { std::u16string().swap(text); }

  std::u16string text;
};

class BooleanObject final : public CountedObject {
public:
  explicit BooleanObject(bool on) : isOn(on) {}

  [[nodiscard]] CFTypeID type() const override { return static_cast<CFTypeID>(ValueType::boolean); }
  [[nodiscard]] std::string description() const override {
    return isOn ? "CFBoolean true" : "CFBoolean false";
  }

  const bool isOn;
};

class NumberObject final : public CountedObject {
public:
  explicit NumberObject(double is) : number(is) {}

  [[nodiscard]] CFTypeID type() const override { return static_cast<CFTypeID>(ValueType::number); }
  [[nodiscard]] std::string description() const override { return "CFNumber " + std::to_string(number); }
  [[nodiscard]] bool equals(const CountedObject& other) const override {
    return dynamic_cast<const NumberObject&>(other).number == number;
  }
  [[nodiscard]] std::size_t hash() const override { return std::hash<double>{}(number); }

  const double number;
};

class DataObject final : public CountedObject {
public:
  explicit DataObject(std::string content) : bytes(std::move(content)) {}

  [[nodiscard]] CFTypeID type() const override { return static_cast<CFTypeID>(ValueType::data); }
  [[nodiscard]] std::string description() const override;
  [[nodiscard]] bool equals(const CountedObject& other) const override {
    return dynamic_cast<const DataObject&>(other).bytes == bytes;
  }
  [[nodiscard]] std::size_t hash() const override { return std::hash<std::string>{}(bytes); }
  void end() override { std::string().swap(bytes); }

  std::string bytes;
};

/// Owns its entries, unless it was made without callbacks.
class ArrayObject final : public CountedObject {
public:
  ArrayObject(std::vector<CFTypeRef> of, bool owning);

  [[nodiscard]] CFTypeID type() const override { return static_cast<CFTypeID>(ValueType::array); }
  [[nodiscard]] std::string description() const override;
  [[nodiscard]] std::size_t hash() const override { return entries.size(); }
  void end() override;

  std::vector<CFTypeRef> entries;

private:
  bool isOwning_;
};

/// Owns its keys and values, and compares its keys, as its callbacks tell.
class DictionaryObject final : public CountedObject {
public:
  using Entries = std::vector<std::pair<CFTypeRef, CFTypeRef>>;
  DictionaryObject(Entries of, bool owningKeys, bool owningValues);

  [[nodiscard]] CFTypeID type() const override { return static_cast<CFTypeID>(ValueType::dictionary); }
  [[nodiscard]] std::string description() const override;
  [[nodiscard]] std::size_t hash() const override { return entries.size(); }
  void end() override;
  /// Whether the two are the same key here.
  [[nodiscard]] bool isSameKey(CFTypeRef one, CFTypeRef other) const {
    return areKeysOwned_ ? CFEqual(one, other) != 0 : one == other;
  }

  Entries entries;

private:
  bool areKeysOwned_;
  bool areValuesOwned_;
};

/// UTF-16 of UTF-8 that is valid.
[[nodiscard]] std::u16string utf16(std::string_view utf8);
/// A string that the caller owns.
[[nodiscard]] CFStringRef makeString(std::string_view utf8);
/// A string that lives for ever, for the constants of an interface.
[[nodiscard]] CFStringRef constantString(std::string_view utf8);
/// UTF-8 of the string, which `user` uses; empty if it is none.
[[nodiscard]] std::string utf8Of(CFStringRef string, std::string_view user);

}  // namespace tilwin::macos::c
