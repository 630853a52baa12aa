#pragma once

#import <Foundation/Foundation.h>

#include <utility>

namespace tilwin::macos {

/// Owns one reference to an Objective-C object and releases it; may be empty. Objects that are kept are kept
/// in one of these, as the sources are built without automatic reference counting. `Pointer` is a pointer to
/// the class, `id`, or a block type.
template <typename Pointer>
class Held {
public:
  Held() = default;
  Held(const Held& other) : object_([other.object_ retain]) {}
  Held(Held&& other) noexcept : object_(std::exchange(other.object_, nil)) {}
  Held& operator=(const Held& other) {
    if (this != &other) *this = Held(other);
    return *this;
  }
  Held& operator=(Held&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Held() { [object_ release]; }

  /// Takes over a reference that the caller owns: from `alloc`, `new`, `copy` or `mutableCopy`.
  [[nodiscard]] static Held owned(Pointer object) { return Held(object); }
  /// Adds a reference to an object that somebody else owns, such as an autoreleased one.
  [[nodiscard]] static Held retained(Pointer object) { return Held([object retain]); }

  [[nodiscard]] Pointer get() const { return object_; }
  explicit operator bool() const { return object_ != nil; }

private:
  explicit Held(Pointer object) : object_(object) {}

  Pointer object_ = nil;
};

template <typename Pointer>
[[nodiscard]] Held<Pointer> owned(Pointer object) {
  return Held<Pointer>::owned(object);
}

template <typename Pointer>
[[nodiscard]] Held<Pointer> retained(Pointer object) {
  return Held<Pointer>::retained(object);
}

/// Releases at the end of its scope what was autoreleased within it. For code that runs outside the event
/// loop, which has such a scope for each event.
class AutoreleasePool {
public:
  AutoreleasePool() = default;
  AutoreleasePool(const AutoreleasePool&) = delete;
  AutoreleasePool& operator=(const AutoreleasePool&) = delete;
  ~AutoreleasePool() { [pool_ drain]; }

private:
  NSAutoreleasePool* pool_ = [[NSAutoreleasePool alloc] init];
};

}  // namespace tilwin::macos
