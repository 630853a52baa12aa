#pragma once

#include <unordered_map>

namespace tilwin::macos {

/// A property that a category adds to objects of a class of GNUstep's, whose runtime has no associated
/// objects. Values stay when their object goes; an object that sets its own never sees an earlier one's.
template <typename Value>
class Attached {
public:
  [[nodiscard]] Value of(const void* object) const {
    const auto found = values_.find(object);
    return found == values_.end() ? Value() : found->second;
  }
  void set(const void* object, Value value) { values_.insert_or_assign(object, std::move(value)); }

private:
  std::unordered_map<const void*, Value> values_;
};

}  // namespace tilwin::macos
