#pragma once

#include <unistd.h>

#include <utility>

namespace tilwin {

/// A file descriptor, closed by the destructor; a negative number is none.
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

  [[nodiscard]] bool isOpen() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }
  /// False, with `errno`, if closing failed, which can mean that not all was written.
  bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
  int number_;
};

}  // namespace tilwin
