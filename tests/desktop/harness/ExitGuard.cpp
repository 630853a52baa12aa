#include "tests/desktop/harness/ExitGuard.h"

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <mutex>
#include <set>
#include <system_error>
#include <thread>

namespace tilwin::desktop {

namespace {

struct Enrolled {
  std::mutex mutex;
  bool ending = false;
  std::set<pid_t> groups;
  std::set<std::filesystem::path> folders;
};

Enrolled& enrolled() {
  static Enrolled instance;
  return instance;
}

sigset_t endSignals() {
  sigset_t ending;
  sigemptyset(&ending);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ending, number);
  return ending;
}

void signalGroups(const std::set<pid_t>& groups, int number) {
  for (const pid_t group : groups) kill(-group, number);
}

}  // namespace

bool ExitGuard::enrolGroup(pid_t group) {
  std::lock_guard lock(enrolled().mutex);
  if (enrolled().ending) return false;
  enrolled().groups.insert(group);
  return true;
}

void ExitGuard::strikeGroup(pid_t group) {
  std::lock_guard lock(enrolled().mutex);
  enrolled().groups.erase(group);
}

void ExitGuard::enrolFolder(const std::filesystem::path& folder) {
  std::lock_guard lock(enrolled().mutex);
  enrolled().folders.insert(folder);
}

void ExitGuard::strikeFolder(const std::filesystem::path& folder) {
  std::lock_guard lock(enrolled().mutex);
  enrolled().folders.erase(folder);
}

void ExitGuard::endNow() {
  std::lock_guard lock(enrolled().mutex);
  enrolled().ending = true;
  signalGroups(enrolled().groups, SIGTERM);
  // Time for an X server to unlink its lock and socket. Nobody reaps any more, and a dead leader looks like a
  // living one, so there is nothing to wait for instead.
  if (!enrolled().groups.empty()) std::this_thread::sleep_for(std::chrono::milliseconds(300));
  signalGroups(enrolled().groups, SIGKILL);
  for (const auto& folder : enrolled().folders) {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
}

struct EndOnSignal::Taker {
  std::atomic<bool> over{false};
  sigset_t before{};
  std::thread thread;

  void take() {
    const sigset_t awaited = endSignals();
    int number = 0;
    sigwait(&awaited, &number);
    if (over) return;
    ExitGuard::endNow();
    std::signal(number, SIG_DFL);
    pthread_sigmask(SIG_UNBLOCK, &awaited, nullptr);
    raise(number);
  }
};

EndOnSignal::EndOnSignal() : taker_(std::make_unique<Taker>()) {
  const sigset_t awaited = endSignals();
  pthread_sigmask(SIG_BLOCK, &awaited, &taker_->before);
  taker_->thread = std::thread([this] { taker_->take(); });
}

EndOnSignal::~EndOnSignal() {
  taker_->over = true;
  pthread_kill(taker_->thread.native_handle(), SIGHUP);
  taker_->thread.join();
  pthread_sigmask(SIG_SETMASK, &taker_->before, nullptr);
}

}  // namespace tilwin::desktop
