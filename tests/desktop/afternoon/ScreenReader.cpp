#include "tests/desktop/afternoon/ScreenReader.h"

#include <sstream>
#include <string_view>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// The rest of the line that begins with "key=".
std::string valueOf(const std::string& lines, const std::string& key) {
  std::istringstream stream(lines);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with(key + "=")) return line.substr(key.size() + 1);
  }
  throw HarnessError("the screen reader told no " + key + ": " + lines);
}

double numberOf(const std::string& lines, const std::string& key) { return std::stod(valueOf(lines, key)); }

/// Logs are appended to, and each reading looks at its own.
std::string nextReading() {
  static int readings = 0;
  return "reader-" + std::to_string(++readings);
}

}  // namespace

PixelPoint Accessible::centre() const {
  return {static_cast<int>(area.x + area.width / 2), static_cast<int>(area.y + area.height / 2)};
}

Accessible ScreenReader::find(const std::string& role, const std::string& name,
                              const std::vector<std::string>& states) {
  const auto lines = read(answerTimeout, role, name, states);
  if (lines.empty()) {
    std::string wanted = role + " “" + name + "”";
    for (const auto& state : states) wanted += " " + state;
    throw HarnessError("a screen reader sees no " + wanted);
  }
  return {.area = {numberOf(lines, "x"), numberOf(lines, "y"), numberOf(lines, "width"),
                   numberOf(lines, "height")},
          .description = valueOf(lines, "description"),
          .states = valueOf(lines, "states")};
}

bool ScreenReader::sees(const std::string& role, const std::string& name,
                        const std::vector<std::string>& states) {
  return !read(Milliseconds{0}, role, name, states).empty();
}

std::string ScreenReader::read(Milliseconds timeout, const std::string& role, const std::string& name,
                               const std::vector<std::string>& states) {
  const std::string script = std::string(TILWIN_AFTERNOON_FOLDER) + "/find_accessible.py";
  const auto seconds = std::to_string(static_cast<double>(timeout.count()) / 1000);
  std::vector<std::string> command{"/usr/bin/python3", "-B",    "-W", "ignore", script,
                                   "Tilwin",           seconds, role, name};
  command.insert(command.end(), states.begin(), states.end());
  auto reader = session_.start(nextReading(), command);
  const auto status = reader.waitFor(timeout + startTimeout);
  if (status == ExitStatus{.code = 0, .signal = std::nullopt}) return reader.output();
  if (status == ExitStatus{.code = 1, .signal = std::nullopt} && reader.output().empty()) return {};
  throw HarnessError("the screen reader failed: " + lastLines(reader.output(), 8));
}

}  // namespace tilwin::desktop
