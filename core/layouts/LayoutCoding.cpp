#include "core/layouts/LayoutCoding.h"

#include <array>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace tilwin {
namespace {

constexpr std::string_view payloadKey = "_0";

template <typename Target>
SlotTarget decodeTarget(const JsonReader& payload) {
  return JsonCoding<Target>::decode(payload);
}

struct TargetKind {
  std::string_view key;
  SlotTarget (*decode)(const JsonReader& payload);
};

/// In the order of the alternatives of `SlotTarget`.
constexpr std::array kinds = std::to_array<TargetKind>({
    {"region", decodeTarget<GridRegion>},
    {"normalized", decodeTarget<NormalizedRect>},
});

}  // namespace

SlotTarget JsonCoding<SlotTarget>::decode(const JsonReader& reader) {
  const std::vector<std::string> keys = reader.keys();
  if (keys.size() != 1)
    reader.fail(JsonError::Kind::wrongType, "Invalid number of keys found, expected one.");
  for (const TargetKind& kind : kinds) {
    if (kind.key == keys.front()) return kind.decode(reader.member(kind.key).member(payloadKey));
  }
  reader.fail(JsonError::Kind::badValue, "no kind of target is called \"" + keys.front() + "\"");
}

JsonValue JsonCoding<SlotTarget>::encode(const SlotTarget& target) {
  JsonValue payload = JsonValue::object();
  payload.set(
      payloadKey,
      std::visit([](const auto& value) { return JsonCoding<std::decay_t<decltype(value)>>::encode(value); },
                 target));
  JsonValue object = JsonValue::object();
  object.set(kinds[target.index()].key, std::move(payload));
  return object;
}

}  // namespace tilwin
