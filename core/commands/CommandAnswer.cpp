#include "core/commands/CommandAnswer.h"

#include "core/commands/CommandWire.h"

namespace tilwin {

std::string CommandAnswer::bytes(const CommandReply& reply) {
  using Kind = CommandWire::FrameKind;
  if (reply.isWatching) return CommandWire::frame(Kind::output, "");
  std::string bytes;
  if (!reply.output.empty()) bytes += CommandWire::frame(Kind::output, reply.output);
  if (!reply.problem.empty()) bytes += CommandWire::frame(Kind::problem, reply.problem);
  return bytes + CommandWire::statusFrame(reply.status);
}

std::optional<CommandReply> CommandAnswer::reply(std::string_view bytes) {
  CommandReply reply;
  while (const auto frame = CommandWire::firstFrame(bytes)) {
    if (frame->kind == CommandWire::FrameKind::status) {
      reply.status = CommandWire::statusOf(*frame);
      return reply;
    }
    (frame->kind == CommandWire::FrameKind::output ? reply.output : reply.problem).append(frame->content);
    reply.isWatching = frame->content.empty();
    bytes.remove_prefix(frame->size);
  }
  return reply.isWatching ? std::optional(reply) : std::nullopt;
}

}  // namespace tilwin
