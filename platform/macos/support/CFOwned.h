#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace tilwin::macos {

/// Owns one reference to an object of Core Foundation and releases it; may be empty. `Reference` is
/// CFStringRef, CFTypeRef and so on. It never leaves the adapters.
template <typename Reference>
class CFOwned {
public:
  CFOwned() = default;
  CFOwned(const CFOwned& other) : CFOwned(retained(other.object_)) {}
  CFOwned(CFOwned&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  CFOwned& operator=(const CFOwned& other) {
    CFOwned copy(other);
    std::swap(object_, copy.object_);
    return *this;
  }
  CFOwned& operator=(CFOwned&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~CFOwned() {
    if (object_ != nullptr) CFRelease(object_);
  }

  /// Takes over a reference that the caller owns: from a function with Create or Copy in its name; may be
  /// null.
  [[nodiscard]] static CFOwned created(Reference object) { return CFOwned(object); }
  /// Adds a reference to an object that somebody else owns: from a function with Get in its name, or a
  /// constant; may be null.
  [[nodiscard]] static CFOwned retained(Reference object) {
    if (object != nullptr) CFRetain(object);
    return CFOwned(object);
  }

  [[nodiscard]] Reference get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

private:
  explicit CFOwned(Reference object) : object_(object) {}

  Reference object_ = nullptr;
};

template <typename Reference>
[[nodiscard]] CFOwned<Reference> created(Reference object) {
  return CFOwned<Reference>::created(object);
}

/// The object as `Reference` if it is of that type; null otherwise, for null too. Nobody's owner changes.
template <typename Reference>
[[nodiscard]] Reference asType(CFTypeRef object, CFTypeID type) {
  return object != nullptr && CFGetTypeID(object) == type ? static_cast<Reference>(object) : nullptr;
}

}  // namespace tilwin::macos
