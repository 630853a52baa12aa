#include "platform/qt/BeforeMessages.h"

#include <QMessageLogContext>
#include <QString>
#include <thread>
#include <utility>

namespace tilwin::qt {
namespace {

/// A message handler takes no argument of ours.
struct Before {
  std::function<void()> task;
  std::thread::id thread;
  QtMessageHandler write = nullptr;
};

Before& before() {
  static Before only;
  return only;
}

void handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  const Before& known = before();
  // Qt calls no handler from within one: what the task writes comes out at once.
  if (known.task && std::this_thread::get_id() == known.thread) known.task();
  known.write(type, context, message);
}

}  // namespace

BeforeMessages::BeforeMessages(std::function<void()> task) {
  before() = {std::move(task), std::this_thread::get_id(), qInstallMessageHandler(nullptr)};
  qInstallMessageHandler(handle);
}

BeforeMessages::~BeforeMessages() {
  qInstallMessageHandler(before().write);
  before().task = nullptr;
}

}  // namespace tilwin::qt
