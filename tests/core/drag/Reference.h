#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/drag/DragFeatures.h"
#include "core/geometry/Rect.h"

namespace tilwin {

/// The columns of one case of the reference that are still unread. Reading past the last one returns nothing.
class Columns {
public:
  explicit Columns(std::string_view line) : rest_(line) {}

  std::string_view word() {
    const std::string_view word = rest_.substr(0, rest_.find(' '));
    rest_.remove_prefix(std::min(word.size() + 1, rest_.size()));
    return word;
  }
  double number() { return std::strtod(std::string(word()).c_str(), nullptr); }
  std::int64_t whole() { return std::strtoll(std::string(word()).c_str(), nullptr, 10); }
  bool flag() { return word() == "1"; }
  std::optional<std::string_view> optionalWord() {
    const std::string_view text = word();
    return text == "-" ? std::nullopt : std::optional(text);
  }
  std::optional<double> optionalNumber() {
    const auto text = optionalWord();
    return text ? std::optional(std::strtod(std::string(*text).c_str(), nullptr)) : std::nullopt;
  }
  Rect rect() { return {number(), number(), number(), number()}; }
  NeighbourEdges edges() { return {flag(), flag(), flag(), flag()}; }
  DragFeatures features() { return {number(), number(), number(), number(), flag()}; }

  [[nodiscard]] bool isDone() const { return rest_.empty(); }

private:
  std::string_view rest_;
};

/// Equal up to rounding.
inline bool agree(double ours, double theirs) {
  return std::abs(ours - theirs) <= 1e-12 * std::max(1.0, std::abs(theirs));
}

inline bool agree(const std::optional<double>& ours, const std::optional<double>& theirs) {
  return ours.has_value() == theirs.has_value() && (!ours || agree(*ours, *theirs));
}

/// Lets the reference generate cases of one kind and passes each to `check`, which fails the test if the two
/// disagree. Stops at the first disagreement.
inline void compareWithReference(const std::string& kind, int seed, int count,
                                 const std::function<void(Columns&)>& check) {
  const std::string command =
      "python3 -B '" TILWIN_REFERENCE "' " + kind + " " + std::to_string(seed) + " " + std::to_string(count);
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> cases(::popen(command.c_str(), "r"), ::pclose);
  ASSERT_NE(cases, nullptr);
  char* line = nullptr;
  std::size_t room = 0;
  int compared = 0;
  for (ssize_t length = 0; (length = ::getline(&line, &room, cases.get())) > 0; ++compared) {
    const std::string_view text(line, static_cast<std::size_t>(length) - 1);
    Columns columns(text);
    check(columns);
    EXPECT_TRUE(columns.isDone()) << "more columns than expected";
    if (testing::Test::HasFailure()) {
      ADD_FAILURE() << "case " << compared << " of " << command << ":\n" << text.substr(0, 4000);
      break;
    }
  }
  std::free(line);
  EXPECT_TRUE(compared == count || testing::Test::HasFailure()) << compared << " cases from " << command;
}

}  // namespace tilwin
