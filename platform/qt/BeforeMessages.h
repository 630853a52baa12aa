#pragma once

#include <functional>

namespace tilwin::qt {

/// Does a task before each line that Qt, or Tilwin through QtSystemLog, writes on the main thread, for as
/// long as this lives. The task may end the process; lines it writes itself do not call it again. Make one at
/// a time, on the main thread. Source: Qt, qInstallMessageHandler.
class BeforeMessages {
public:
  explicit BeforeMessages(std::function<void()> task);
  BeforeMessages(const BeforeMessages&) = delete;
  BeforeMessages& operator=(const BeforeMessages&) = delete;
  ~BeforeMessages();
};

}  // namespace tilwin::qt
