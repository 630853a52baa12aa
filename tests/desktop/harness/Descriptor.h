#pragma once

#include <utility>

namespace tilwin::desktop {

/// The owner of an open file descriptor; none when negative.
class Descriptor {
public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  int number() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }
  void close();

private:
  int number_;
};

/// Both ends of a pipe that no program started later inherits by itself.
struct Pipe {
  Descriptor readEnd;
  Descriptor writeEnd;

  /// Throws HarnessError when there is none to be had.
  static Pipe make();
};

}  // namespace tilwin::desktop
