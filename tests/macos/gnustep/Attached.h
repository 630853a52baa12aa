#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace tilwin::macos {

/// From now on this is called with each object of the class, or of one below it, that is about to be freed;
/// on the thread that does it. No such class may lie below another.
void atEndOfObjects(const char* className, std::function<void(const void* object)> act);

/// A property that a category adds to the objects of a class of GNUstep's, whose runtime has no associated
/// objects. A value is dropped when its object is freed. Any thread.
template <typename Value>
class Attached {
public:
  explicit Attached(const char* className) : className_(className) {}

  [[nodiscard]] Value of(const void* object) const {
    const std::scoped_lock lock(values_->mutex);
    const auto found = values_->ofObjects.find(object);
    return found == values_->ofObjects.end() ? Value() : found->second;
  }
  void set(const void* object, Value value) {
    std::call_once(isAttending_, [this] {
      atEndOfObjects(className_, [values = values_](const void* ended) { values->drop(ended); });
    });
    const std::scoped_lock lock(values_->mutex);
    std::swap(values_->ofObjects[object], value);
  }

private:
  struct Values {
    void drop(const void* object) {
      // Destroyed after the lock is given back, as that may free another object.
      typename std::unordered_map<const void*, Value>::node_type dropped;
      const std::scoped_lock lock(mutex);
      dropped = ofObjects.extract(object);
    }

    std::mutex mutex;
    std::unordered_map<const void*, Value> ofObjects;
  };

  const char* className_;
  std::once_flag isAttending_;
  std::shared_ptr<Values> values_ = std::make_shared<Values>();
};

}  // namespace tilwin::macos
