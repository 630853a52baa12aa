#pragma once

#include <tuple>

#include "core/layouts/LayoutCoding.h"
#include "core/layouts/LayoutStore.h"

namespace tilwin {

/// The layouts file as a whole.
template <>
struct JsonFields<LayoutStore> {
  static constexpr auto table = std::make_tuple(JsonField{"layouts", &LayoutStore::layouts});
};

}  // namespace tilwin
