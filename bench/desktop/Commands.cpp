#include "bench/desktop/Commands.h"

#include <spawn.h>
#include <sys/wait.h>

#include <memory>
#include <utility>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::bench {

namespace {

/// Starts a program as quickly as a process can, and reaps it before it is started again.
class Starter {
public:
  Starter(std::vector<std::string> arguments, const desktop::Environment& environment)
      : arguments_(std::move(arguments)), variables_(environment.strings()) {}
  Starter(const Starter&) = delete;
  Starter& operator=(const Starter&) = delete;
  ~Starter() { reap(); }

  desktop::Clock::time_point start() {
    reap();
    auto arguments = pointersTo(arguments_);
    auto variables = pointersTo(variables_);
    const auto begun = desktop::Clock::now();
    if (posix_spawnp(&process_, arguments.front(), nullptr, nullptr, arguments.data(), variables.data()) !=
        0) {
      throw desktop::HarnessError(arguments_.front() + " cannot be started");
    }
    return begun;
  }

private:
  void reap() {
    if (process_ != 0) waitpid(std::exchange(process_, 0), nullptr, 0);
  }
  static std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& each : texts) pointers.push_back(each.data());
    pointers.push_back(nullptr);
    return pointers;
  }

  std::vector<std::string> arguments_;
  std::vector<std::string> variables_;
  pid_t process_ = 0;
};

Mover program(const std::string& name, std::vector<std::string> arguments, desktop::Session& session,
              const Mover& request) {
  const auto starter = std::make_shared<Starter>(std::move(arguments), session.environment());
  return {name, [starter] { return starter->start(); }, request.putBack};
}

}  // namespace

std::vector<Mover> commandMoversFor(desktop::Session& session, const desktop::TestWindow& window,
                                    const std::filesystem::path& tilwin, const Mover& request) {
  std::vector<std::string> wmctrl{"wmctrl"};
  for (auto& each : wmctrlArguments(leftHalf, session.desktop().frameExtents(window.id()))) {
    wmctrl.push_back(std::move(each));
  }
  std::vector<Mover> movers;
  movers.push_back(program("wmctrl", std::move(wmctrl), session, request));
  movers.push_back(program("tilwin snap leftHalf", {tilwin.string(), "snap", "leftHalf"}, session, request));
  return movers;
}

std::vector<std::string> wmctrlArguments(const Rect& frame, const desktop::Extents& extents) {
  const auto whole = [](double value) { return std::to_string(static_cast<int>(value)); };
  return {"-r", ":ACTIVE:", "-e",
          "1," + whole(frame.x) + "," + whole(frame.y) + "," +
              whole(frame.width - extents.left - extents.right) + "," +
              whole(frame.height - extents.top - extents.bottom)};
}

}  // namespace tilwin::bench
