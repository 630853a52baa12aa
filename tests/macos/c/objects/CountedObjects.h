#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// The objects behind the references that the stand-ins of C interfaces hand out.

namespace tilwin::macos::c {

/// An object that knows neither its references nor its owners; those are counted by `CountedObjects`.
class CountedObject {
public:
  CountedObject() = default;
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;
  virtual ~CountedObject() = default;

  [[nodiscard]] virtual CFTypeID type() const = 0;
  /// What it is, for findings: "CFString \"AXRole\"".
  [[nodiscard]] virtual std::string description() const = 0;
  /// `other` is of the same type.
  [[nodiscard]] virtual bool equals(const CountedObject& other) const { return this == &other; }
  [[nodiscard]] virtual std::size_t hash() const { return std::hash<const void*>{}(this); }
  /// The last owner has let go: lets go of what it owns and frees its content.
  virtual void end() {}
};

/// All objects there are, with the number of their owners. What breaks the rules of ownership becomes a
/// finding: an object that still has owners in the end, one that is released more often than it is owned, one
/// that is used after it was released, a reference that is none, or one of another type than a function
/// takes.
///
/// Released objects are kept until the findings are taken, so that their later use is noticed and harms
/// nothing.
class CountedObjects {
public:
  /// The objects of this process; the C functions have no other way to them.
  static CountedObjects& all();

  /// A new object with one owner, as a function with Create or Copy in its name returns it.
  template <typename Object, typename... Arguments>
  CFTypeRef make(Arguments&&... arguments) {
    return keep(std::make_unique<Object>(std::forward<Arguments>(arguments)...), 1);
  }
  /// An object that lives for ever.
  template <typename Object, typename... Arguments>
  CFTypeRef makeConstant(Arguments&&... arguments) {
    return keep(std::make_unique<Object>(std::forward<Arguments>(arguments)...), constant);
  }

  void retain(CFTypeRef object);
  void release(CFTypeRef object);
  /// How many owners the object has; 0 if it was released or never made.
  [[nodiscard]] int owners(CFTypeRef of) const;

  /// The object behind a reference, which `user` is about to use; null for none or one of another class.
  template <typename Object = CountedObject>
  Object* used(CFTypeRef reference, std::string_view user) {
    CountedObject* const found = find(reference, user);
    auto* const object = dynamic_cast<Object*>(found);
    if (found != nullptr && object == nullptr) note(user, "cannot use", found->description());
    return object;
  }

  /// Adds a finding: `user` did something wrong with an object.
  void note(std::string_view user, std::string_view what, std::string_view object);

  /// Whether an object made for this test has an owner.
  [[nodiscard]] bool hasOwned() const;
  /// What broke the rules since the last call, objects that still have owners included. All objects are then
  /// forgotten but the constant ones.
  [[nodiscard]] std::vector<std::string> takeFindings();

private:
  static constexpr int constant = -1;
  struct Counted {
    std::unique_ptr<CountedObject> object;
    int owners = 0;
    std::string description;
  };

  CFTypeRef keep(std::unique_ptr<CountedObject> object, int owners);
  CountedObject* find(CFTypeRef reference, std::string_view user);

  std::unordered_map<CFTypeRef, Counted> counted_;
  std::vector<std::string> findings_;
};

inline CountedObjects& objects() { return CountedObjects::all(); }

}  // namespace tilwin::macos::c
