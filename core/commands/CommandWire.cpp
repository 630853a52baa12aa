#include "core/commands/CommandWire.h"

namespace tilwin {
namespace {

bool isLetterOrDigit(char each) {
  return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z') || (each >= '0' && each <= '9');
}

std::string inPlainCharacters(std::string_view text) {
  constexpr std::string_view hexDigits = "0123456789abcdef";
  std::string result;
  for (const char each : text) {
    const auto byte = static_cast<unsigned char>(each);
    if (isLetterOrDigit(each)) {
      result += each;
    } else {
      result.append({'_', hexDigits[byte >> 4U], hexDigits[byte & 15U]});
    }
  }
  return result;
}

std::string lengthBytes(std::size_t length) {
  std::string bytes;
  for (unsigned shift = 32; shift > 0; shift -= 8)
    bytes += static_cast<char>((length >> (shift - 8)) & 0xFFU);
  return bytes;
}

std::size_t lengthFrom(std::string_view bytes) {
  std::size_t length = 0;
  for (const char each : bytes.substr(0, CommandWire::lengthSize)) {
    length = length << 8U | static_cast<unsigned char>(each);
  }
  return length;
}

}  // namespace

std::string CommandWire::displayWord(std::string_view display) {
  const auto colon = display.rfind(':');
  if (colon == std::string_view::npos) return "display_" + inPlainCharacters(display);
  const std::string_view number = display.substr(colon + 1);
  const std::string_view host = display.substr(0, colon);
  // Two ways to say this machine.
  const bool isLocal = host.empty() || host == "unix";
  return "display_" + (isLocal ? std::string() : inPlainCharacters(host) + "_") +
         inPlainCharacters(number.substr(0, number.find('.')));
}

std::optional<std::string> CommandWire::socketPath(std::string_view runtimeFolder, std::string_view display) {
  if (!runtimeFolder.starts_with('/')) return std::nullopt;
  return std::string(runtimeFolder) + "/tilwin." + displayWord(display) + ".socket";
}

std::optional<std::string> CommandWire::request(std::span<const std::string> arguments) {
  std::string content;
  for (const std::string& argument : arguments) {
    if (argument.find('\0') != std::string::npos) return std::nullopt;
    content.append(argument).push_back('\0');
    if (content.size() > largestRequest) return std::nullopt;
  }
  return lengthBytes(content.size()) + content;
}

CommandWire::Received CommandWire::received(std::string_view bytes) {
  using State = Received::State;
  if (bytes.size() < lengthSize) return {};
  const std::size_t length = lengthFrom(bytes);
  bytes.remove_prefix(lengthSize);
  if (length > largestRequest || bytes.size() > length) return {State::wrong};
  if (bytes.size() < length) return {};
  if (!bytes.empty() && bytes.back() != '\0') return {State::wrong};
  Received result{State::complete};
  while (!bytes.empty()) {
    const auto end = bytes.find('\0');
    result.arguments.emplace_back(bytes.substr(0, end));
    bytes.remove_prefix(end + 1);
  }
  return result;
}

std::string CommandWire::frame(FrameKind kind, std::string_view content) {
  return static_cast<char>(kind) + lengthBytes(content.size()).append(content);
}

std::string CommandWire::statusFrame(int status) {
  const char content = static_cast<char>(status);
  return frame(FrameKind::status, {&content, 1});
}

std::optional<CommandWire::Frame> CommandWire::firstFrame(std::string_view bytes) {
  constexpr std::size_t headSize = 1 + lengthSize;
  if (bytes.size() < headSize) return std::nullopt;
  const std::size_t length = lengthFrom(bytes.substr(1));
  if (bytes.size() - headSize < length) return std::nullopt;
  return Frame{static_cast<FrameKind>(static_cast<unsigned char>(bytes.front())),
               bytes.substr(headSize, length), headSize + length};
}

int CommandWire::statusOf(const Frame& frame) {
  return frame.content.empty() ? 1 : static_cast<unsigned char>(frame.content.front());
}

}  // namespace tilwin
