#include "core/commands/CommandWire.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tilwin {
namespace {

using Words = std::vector<std::string>;
using State = CommandWire::Received::State;
using namespace std::string_literals;

TEST(CommandWire, ARequestComesOutAsItWentIn) {
  for (const Words& words :
       {Words{}, Words{""}, Words{"snap", "leftHalf"}, Words{"place", "xterm left", "", "né"}}) {
    const auto bytes = CommandWire::request(words);
    ASSERT_TRUE(bytes);
    const auto received = CommandWire::received(*bytes);
    EXPECT_EQ(received.state, State::complete);
    EXPECT_EQ(received.arguments, words);
  }
}

TEST(CommandWire, ARequestThatIsCutAnywhereIsIncomplete) {
  const auto bytes = *CommandWire::request(Words{"snap", "leftHalf"});
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_EQ(CommandWire::received(bytes.substr(0, size)).state, State::incomplete) << size;
  }
}

TEST(CommandWire, RefusesWhatIsNoRequest) {
  const auto bytes = *CommandWire::request(Words{"quit"});
  EXPECT_EQ(CommandWire::received(bytes + "more").state, State::wrong);
  EXPECT_EQ(CommandWire::received("\0\0\0\4quit"s).state, State::wrong);  // its argument has no end
  EXPECT_EQ(CommandWire::received("GET / HTTP/1.1\r\n\r\n").state, State::wrong);
  EXPECT_EQ(CommandWire::received("\0\1\0\1"s).state, State::wrong);  // longer than any
}

TEST(CommandWire, RefusesToSendWhatWouldBeRefused) {
  EXPECT_FALSE(CommandWire::request(Words{std::string(CommandWire::largestRequest, 'x')}));
  EXPECT_TRUE(CommandWire::request(Words{std::string(CommandWire::largestRequest - 1, 'x')}));
  EXPECT_FALSE(CommandWire::request(Words{"a\0b"s}));
}

TEST(CommandWire, AnAnswerIsReadFrameByFrame) {
  const std::string answer =
      CommandWire::frame(CommandWire::FrameKind::output, "text\n") + CommandWire::statusFrame(3);
  const auto first = CommandWire::firstFrame(answer);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->kind, CommandWire::FrameKind::output);
  EXPECT_EQ(first->content, "text\n");
  const auto last = CommandWire::firstFrame(std::string_view(answer).substr(first->size));
  ASSERT_TRUE(last);
  EXPECT_EQ(last->kind, CommandWire::FrameKind::status);
  EXPECT_EQ(CommandWire::statusOf(*last), 3);
  EXPECT_EQ(first->size + last->size, answer.size());
}

TEST(CommandWire, AFrameThatIsCutAnywhereIsNone) {
  const auto frame = CommandWire::frame(CommandWire::FrameKind::problem, "no");
  for (std::size_t size = 0; size < frame.size(); ++size) {
    EXPECT_FALSE(CommandWire::firstFrame(frame.substr(0, size))) << size;
  }
}

TEST(CommandWire, OneDisplayHasOneSocketHoweverItIsWritten) {
  const auto path = CommandWire::socketPath("/run/user/1000", ":0");
  EXPECT_EQ(path, "/run/user/1000/tilwin.display_0.socket");
  EXPECT_EQ(CommandWire::socketPath("/run/user/1000", ":0.1"), path);
  EXPECT_EQ(CommandWire::socketPath("/run/user/1000", "unix:0"), path);
  EXPECT_NE(CommandWire::socketPath("/run/user/1000", ":1"), path);
  EXPECT_NE(CommandWire::socketPath("/run/user/1000", "host:0"), path);
  EXPECT_EQ(CommandWire::socketPath("/run/user/1000", "../../x:0"),
            "/run/user/1000/tilwin.display__2e_2e_2f_2e_2e_2fx_0.socket");
}

TEST(CommandWire, WithoutARuntimeFolderThereIsNoSocket) {
  EXPECT_FALSE(CommandWire::socketPath("", ":0"));
  EXPECT_FALSE(CommandWire::socketPath("relative", ":0"));
}

}  // namespace
}  // namespace tilwin
