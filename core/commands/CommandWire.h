#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tilwin {

/// How a called `tilwin` and the running instance talk over a local socket. The request is one message: the
/// arguments. The answer is any number of frames, the last of which has the exit status. Lengths are 32 bits,
/// most significant byte first. Only the standard library: the calling side must start quickly.
struct CommandWire {
  static constexpr std::size_t largestRequest = std::size_t{1} << 16;  ///< bytes, without the length
  static constexpr std::size_t lengthSize = 4;

  /// Where the instance for a display listens: a file in the user's runtime folder (XDG Base Directory
  /// Specification, $XDG_RUNTIME_DIR). Nothing without such a folder. `display` is that of $DISPLAY.
  [[nodiscard]] static std::optional<std::string> socketPath(std::string_view runtimeFolder,
                                                             std::string_view display);
  /// "display_0" for ":0.0" and "unix:0"; only letters, digits and "_". Different displays differ.
  [[nodiscard]] static std::string displayWord(std::string_view display);

  /// Nothing if they are too long, or contain a zero byte.
  [[nodiscard]] static std::optional<std::string> request(std::span<const std::string> arguments);

  /// What has come so far of a request.
  struct Received {
    enum class State : std::uint8_t { incomplete, complete, wrong };
    State state = State::incomplete;
    std::vector<std::string> arguments{};
  };
  [[nodiscard]] static Received received(std::string_view bytes);

  enum class FrameKind : std::uint8_t { output = 'o', problem = 'e', status = 'x' };
  struct Frame {
    FrameKind kind = FrameKind::status;
    std::string_view content{};
    std::size_t size = 0;  ///< bytes of the whole frame
  };
  [[nodiscard]] static std::string frame(FrameKind kind, std::string_view content);
  /// The last frame.
  [[nodiscard]] static std::string statusFrame(int status);
  /// The first frame in the bytes, as views into them; nothing until it is complete.
  [[nodiscard]] static std::optional<Frame> firstFrame(std::string_view bytes);
  [[nodiscard]] static int statusOf(const Frame& frame);
};

}  // namespace tilwin
