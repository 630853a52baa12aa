#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/commands/NearestWord.h"
#include "core/snap/actions/SnapAction.h"
#include "core/support/UnicodeText.h"

namespace tilwin {

/// How the arguments of commands name things.
struct CommandNames {
  /// The action of that stored name, as it is or with hyphens: "leftHalf", "left-half".
  [[nodiscard]] static std::optional<SnapAction> action(std::string_view name);
  /// "left-half" is no action. Did you mean "leftHalf"?
  [[nodiscard]] static std::string noSuchAction(std::string_view name);
  /// The first that has exactly this name, else the first that has it but for case. Null if none has.
  template <typename Named>
  [[nodiscard]] static const Named* find(const std::vector<Named>& all, std::string_view name) {
    const Named* similar = nullptr;
    for (const Named& each : all) {
      if (each.name == name) return &each;
      if (similar == nullptr && UnicodeText::equalIgnoringCase(each.name, name)) similar = &each;
    }
    return similar;
  }
  /// There is no layout "Wriitng". Did you mean "Writing"?
  template <typename Named>
  [[nodiscard]] static std::string noSuch(std::string_view kind, const std::vector<Named>& all,
                                          std::string_view name) {
    std::vector<std::string_view> names;
    names.reserve(all.size());
    for (const Named& each : all) names.push_back(each.name);
    return noSuchName(kind, names, name);
  }

private:
  [[nodiscard]] static std::string noSuchName(std::string_view kind, std::span<const std::string_view> names,
                                              std::string_view name);
};

}  // namespace tilwin
