#pragma once

#include "core/settings/Wording.h"

namespace tilwin {

/// How this desktop calls itself, its parts and its keys in the texts that users read.
class DesktopWords {
public:
  DesktopWords() = default;
  DesktopWords(const DesktopWords&) = delete;
  DesktopWords& operator=(const DesktopWords&) = delete;
  virtual ~DesktopWords() = default;

  /// By default the words of macOS, in which the texts are written.
  [[nodiscard]] virtual Wording wording() const { return {}; }
};

}  // namespace tilwin
