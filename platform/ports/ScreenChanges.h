#pragma once

#include <functional>

namespace tilwin {

/// Tells when displays come, go or change, or panels take other room from them.
class ScreenChanges {
public:
  ScreenChanges() = default;
  ScreenChanges(const ScreenChanges&) = delete;
  ScreenChanges& operator=(const ScreenChanges&) = delete;
  virtual ~ScreenChanges() = default;

  /// The one receiver; replaces an earlier one. Told from the main queue's thread once what is listed has
  /// changed.
  virtual void onChange(std::function<void()> handler) = 0;
};

}  // namespace tilwin
