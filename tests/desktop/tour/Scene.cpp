#include "tests/desktop/tour/Scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tilwin::desktop {

namespace {

using Row = std::array<std::string, 7>;

const Row heading{"by", "action", "window", "frame expected", "frame seen", "ms", ""};

std::string frameText(const Rect& frame) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.0f,%.0f %.0f×%.0f", frame.x, frame.y, frame.width, frame.height);
  return text.data();
}

std::string timeText(double milliseconds) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f", milliseconds);
  return text.data();
}

Row rowOf(const Scene& scene) {
  return {scene.by,
          scene.action,
          scene.application,
          frameText(scene.expected),
          frameText(scene.seen),
          timeText(scene.milliseconds),
          scene.right ? "right" : "WRONG"};
}

/// Columns on a terminal: every character here is one wide, and UTF-8 continues a character with bytes that
/// start with the bits 10.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

std::string line(const Row& row, const std::array<std::size_t, 7>& widths) {
  std::string result;
  for (std::size_t column = 0; column < row.size(); ++column) {
    result += row[column] + std::string(widths[column] - widthOf(row[column]) + 2, ' ');
  }
  return result.substr(0, result.find_last_not_of(' ') + 1) + "\n";
}

}  // namespace

std::string tableOf(const std::vector<Scene>& scenes) {
  std::vector<Row> rows{heading};
  std::ranges::transform(scenes, std::back_inserter(rows), rowOf);
  std::array<std::size_t, 7> widths{};
  for (const auto& row : rows) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths[column] = std::max(widths[column], widthOf(row[column]));
    }
  }
  std::string result;
  for (const auto& row : rows) result += line(row, widths);
  return result;
}

std::string summaryOf(const std::vector<Scene>& scenes) {
  std::vector<double> times;
  for (const Scene& scene : scenes) {
    if (scene.timed) times.push_back(scene.milliseconds);
  }
  std::ranges::sort(times);
  const auto right = std::ranges::count(scenes, true, &Scene::right);
  std::string result = std::to_string(right) + " of " + std::to_string(scenes.size()) + " frames right";
  if (times.empty()) return result;
  return result + "; from the key, button or choice to settled: median " + timeText(times[times.size() / 2]) +
         " ms, longest " + timeText(times.back()) + " ms";
}

}  // namespace tilwin::desktop
