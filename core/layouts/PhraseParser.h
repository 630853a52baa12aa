#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/layouts/Layout.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// Parses layouts described in a sentence: "Safari left half and Mail takes the right half; Notes top right".
/// Text is UTF-8. Nothing here throws: the parts that are not understood are returned, so that the caller can
/// report them.
struct PhraseParser {
  struct Clause {
    std::string appQuery{};  ///< the application's name as given in the sentence, in lower case
    SnapAction action{};

    bool operator==(const Clause&) const = default;
  };

  struct Result {
    std::vector<Clause> clauses{};          ///< in the order of the sentence
    std::vector<std::string> unreadable{};  ///< parts without a clause, in lower case, single-spaced

    bool operator==(const Result&) const = default;
  };

  /// An application that a clause may refer to.
  struct AppCandidate {
    std::string bundleID{};
    std::string name{};

    bool operator==(const AppCandidate&) const = default;
  };

  struct Slots {
    std::vector<LayoutSlot> slots{};        ///< all on the first display
    std::vector<std::string> unresolved{};  ///< queries that fit no application, or several equally well

    bool operator==(const Slots&) const = default;
  };

  [[nodiscard]] static Result parse(std::string_view text);
  /// The application whose name fits the query best, ignoring case: equal to it, else starting with it, else
  /// having a word that starts with it, else containing it. Nothing if several fit equally well.
  [[nodiscard]] static std::optional<AppCandidate> resolve(std::string_view query,
                                                           std::span<const AppCandidate> among);
  /// Resolves every clause and makes a layout slot from it.
  [[nodiscard]] static Slots slots(const Result& from, std::span<const AppCandidate> apps);
};

}  // namespace tilwin
