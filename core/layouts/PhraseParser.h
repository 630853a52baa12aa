#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/layouts/Layout.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// Reads layouts described in a sentence: "Safari left half and Mail takes the right half; Notes top right".
/// Text is UTF-8; nothing here throws, and what cannot be read or found is handed back for the caller to
/// report.
struct PhraseParser {
  struct Clause {
    std::string appQuery{};  ///< what the sentence calls the application, in lower case
    SnapAction action{};

    bool operator==(const Clause&) const = default;
  };

  struct Result {
    std::vector<Clause> clauses{};          ///< in the order of the sentence
    std::vector<std::string> unreadable{};  ///< pieces that gave no clause: in lower case, single-spaced

    bool operator==(const Result&) const = default;
  };

  /// An application that can be meant.
  struct AppCandidate {
    std::string bundleID{};
    std::string name{};

    bool operator==(const AppCandidate&) const = default;
  };

  struct Slots {
    std::vector<LayoutSlot> slots{};        ///< all on the first display
    std::vector<std::string> unresolved{};  ///< queries that mean none of the applications, or several

    bool operator==(const Slots&) const = default;
  };

  [[nodiscard]] static Result parse(std::string_view text);
  /// The one application whose name fits best: equals the query, else begins with it, else has a word that
  /// begins with it, else contains it. Nothing when the best fit is shared by several.
  [[nodiscard]] static std::optional<AppCandidate> resolve(std::string_view query,
                                                           std::span<const AppCandidate> among);
  [[nodiscard]] static Slots slots(const Result& from, std::span<const AppCandidate> apps);
};

}  // namespace tilwin
