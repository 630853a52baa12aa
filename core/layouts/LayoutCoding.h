#pragma once

#include <tuple>

#include "core/geometry/GeometryCoding.h"
#include "core/layouts/Layout.h"
#include "core/layouts/LayoutStore.h"
#include "core/snap/actions/SnapCoding.h"
#include "core/support/JsonCoding.h"

namespace tilwin {

template <>
struct JsonFields<DisplaySignature> {
  static constexpr auto table = std::make_tuple(JsonField{"key", &DisplaySignature::key});
};

/// An object such as `{"region": {"_0": …}}` or `{"normalized": {"_0": …}}`: the kind of target as the only
/// key, and the target under "_0". Anything else is an error.
template <>
struct JsonCoding<SlotTarget> {
  static SlotTarget decode(const JsonReader& reader);
  static JsonValue encode(const SlotTarget& target);
};

// In the order of the layouts file, whose keys are sorted.

template <>
struct JsonFields<LayoutSlot> {
  static constexpr auto table = std::make_tuple(
      JsonField{"appName", &LayoutSlot::appName}, JsonField{"bundleID", &LayoutSlot::bundleID},
      JsonField{"displayIndex", &LayoutSlot::displayIndex}, JsonField{"target", &LayoutSlot::target},
      JsonField{"titleContains", &LayoutSlot::titleContains});
};

template <>
struct JsonFields<Layout> {
  static constexpr auto table =
      std::make_tuple(JsonField{"id", &Layout::id}, JsonField{"isAutomatic", &Layout::isAutomatic},
                      JsonField{"name", &Layout::name}, JsonField{"signature", &Layout::signature},
                      JsonField{"slots", &Layout::slots}, JsonField{"updatedAt", &Layout::updatedAt});
};

/// The root object of the layouts file.
template <>
struct JsonFields<LayoutStore> {
  static constexpr auto table = std::make_tuple(JsonField{"layouts", &LayoutStore::layouts});
};

}  // namespace tilwin
