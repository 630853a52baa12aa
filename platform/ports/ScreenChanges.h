#pragma once

#include <functional>

namespace tilwin {

/// Reports that displays were connected, removed or changed, or that the space taken by panels changed.
class ScreenChanges {
public:
  ScreenChanges() = default;
  ScreenChanges(const ScreenChanges&) = delete;
  ScreenChanges& operator=(const ScreenChanges&) = delete;
  virtual ~ScreenChanges() = default;

  /// Sets the only handler; it replaces an earlier one. It is called on the main thread, after the list of
  /// displays has changed.
  virtual void onChange(std::function<void()> handler) = 0;
};

}  // namespace tilwin
