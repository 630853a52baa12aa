#include "core/commands/CommandAnswer.h"

#include <gtest/gtest.h>

namespace tilwin {
namespace {

TEST(CommandAnswer, ArrivesAsItWasSent) {
  for (const CommandReply& reply :
       {CommandReply::done(), CommandReply::done("one\ntwo\n"), CommandReply::failed(2, "No."),
        CommandReply{.status = 1, .output = std::string(100000, 'x'), .problem = "tilwin: not all\n"},
        CommandReply{.isWatching = true}}) {
    EXPECT_EQ(CommandAnswer::reply(CommandAnswer::bytes(reply)), reply);
  }
}

TEST(CommandAnswer, IsNoneUntilItIsWhole) {
  const std::string bytes = CommandAnswer::bytes(CommandReply::failed(1, "No."));
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_EQ(CommandAnswer::reply(bytes.substr(0, size)), std::nullopt) << size;
  }
}

}  // namespace
}  // namespace tilwin
