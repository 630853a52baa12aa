#include "app/settings/form/FormIds.h"

#include <variant>

namespace tilwin {
namespace {

struct NameOf {
  std::string operator()(SnapAction action) const { return std::string(SnapActions::rawValue(action)); }
  std::string operator()(const Uuid& id) const { return id.text(); }
};

}  // namespace

std::string FormIds::of(std::string_view kind, const ShortcutOwner& owner) {
  return std::string(kind) + ":" + std::visit(NameOf(), owner);
}

std::string_view FormIds::kind(std::string_view id) { return id.substr(0, id.find(':')); }

std::optional<ShortcutOwner> FormIds::owner(std::string_view id) {
  const auto colon = id.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto name = id.substr(colon + 1);
  if (const auto action = SnapActions::fromRawValue(name)) return *action;
  if (const auto area = Uuid::parse(name)) return *area;
  return std::nullopt;
}

}  // namespace tilwin
