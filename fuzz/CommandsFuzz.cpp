// Any bytes as what comes over the socket for commands, and as the arguments of a command.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/commands/CommandParser.h"
#include "core/commands/CommandWire.h"
#include "core/settings/SettingKeys.h"
#include "fuzz/Require.h"

namespace tilwin {
namespace {

void checkWire(const std::string& bytes) {
  const auto received = CommandWire::received(bytes);
  if (received.state == CommandWire::Received::State::complete) {
    require(CommandWire::request(received.arguments) == bytes, "a request does not go out as it came in");
  }
  std::string_view left = bytes;
  while (const auto frame = CommandWire::firstFrame(left)) {
    require(frame->size <= left.size() && frame->content.size() < frame->size,
            "a frame is longer than it is");
    left.remove_prefix(frame->size);
  }
}

std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    const auto end = text.find('\n');
    words.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return words;
}

void checkSetting(const std::vector<std::string>& arguments) {
  const auto changed = SettingKeys::changed({}, arguments.front(), arguments.back());
  if (const auto* refusal = std::get_if<SettingKeys::Refusal>(&changed)) {
    return require(!refusal->reason.empty(), "a value is refused without a reason");
  }
  const auto& settings = std::get<TilwinSettings>(changed);
  TilwinSettings clamped = settings;
  clamped.clamp();
  require(clamped == settings, "a value is taken that is out of range");
  const auto text = SettingKeys::text(settings, arguments.front());
  require(text.has_value(), "a setting that can be changed cannot be read");
  const auto again = SettingKeys::changed(settings, arguments.front(), *text);
  require(std::holds_alternative<TilwinSettings>(again), "what is read is not taken");
}

void checkArguments(const std::vector<std::string>& words) {
  const auto parsed = CommandParser::parse(words);
  if (const auto* misuse = std::get_if<Misuse>(&parsed)) {
    return require(!misuse->message.empty(), "misuse without a word");
  }
  const auto& request = std::get<CommandRequest>(parsed);
  const CommandSpec& spec = CommandTable::spec(request.command);
  const auto parameters = spec.used();
  require(request.arguments.size() <= parameters.size(), "more arguments than the command takes");
  require(request.arguments.size() == parameters.size() || parameters[request.arguments.size()].isOptional,
          "an argument is missing");
  require(!spec.option.word.empty() || !request.hasOption, "an option that the command has not");
  if (request.command == CommandId::set) checkSetting(request.arguments);
}

}  // namespace
}  // namespace tilwin

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  tilwin::checkWire(text);
  tilwin::checkArguments(tilwin::wordsOf(text));
  return 0;
}
