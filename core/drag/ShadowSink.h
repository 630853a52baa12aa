#pragma once

#include "core/drag/ShadowRecord.h"

namespace tilwin {

/// Where finished records of drags go.
class ShadowSink {
public:
  ShadowSink() = default;
  ShadowSink(const ShadowSink&) = delete;
  ShadowSink& operator=(const ShadowSink&) = delete;
  virtual ~ShadowSink() = default;

  /// Returns at once and never fails: a record that cannot be kept is lost.
  virtual void append(const ShadowRecord& record) = 0;
};

}  // namespace tilwin
