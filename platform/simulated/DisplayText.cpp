#include "platform/simulated/DisplayText.h"

#include <charconv>
#include <cstdint>
#include <optional>

namespace tilwin {
namespace {

/// Reads the text of one display from front to back.
class Scanner {
public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool atEnd() const { return rest_.empty(); }

  bool take(char expected) {
    if (!rest_.starts_with(expected)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::optional<double> takeDigits() {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (error != std::errc{}) return std::nullopt;
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return value;
  }

  std::optional<double> takeSize() {
    const auto size = takeDigits();
    return size && *size > 0 ? size : std::nullopt;
  }

  std::optional<double> takeOffset() {
    const bool negative = take('-');
    if (!negative && !take('+')) return std::nullopt;
    const auto distance = takeDigits();
    if (!distance) return std::nullopt;
    return negative ? -*distance : *distance;
  }

private:
  std::string_view rest_;
};

std::optional<Rect> parseGeometry(std::string_view text) {
  Scanner scanner(text);
  const auto width = scanner.takeSize();
  if (!width || !scanner.take('x')) return std::nullopt;
  const auto height = scanner.takeSize();
  if (!height) return std::nullopt;
  const auto x = scanner.takeOffset();
  if (!x) return std::nullopt;
  const auto y = scanner.takeOffset();
  if (!y || !scanner.atEnd()) return std::nullopt;
  return Rect{*x, *y, *width, *height};
}

}  // namespace

std::variant<std::vector<DisplayInfo>, DisplayTextError> parseDisplays(std::string_view text) {
  std::vector<DisplayInfo> displays;
  for (bool more = true; more;) {
    const std::size_t comma = text.find(',');
    const std::string_view part = text.substr(0, comma);
    const auto frame = parseGeometry(part);
    if (!frame) return DisplayTextError{"not a display, WIDTHxHEIGHT+X+Y: \"" + std::string(part) + "\""};
    const auto id = static_cast<std::uint32_t>(displays.size() + 1);
    displays.push_back({.id = id, .frame = *frame, .visibleFrame = *frame, .isPrimary = id == 1});
    more = comma != std::string_view::npos;
    if (more) text.remove_prefix(comma + 1);
  }
  return displays;
}

}  // namespace tilwin
