#pragma once

#include <sys/types.h>

namespace tilwin::desktop {

struct Launch;

/// Starts the program as the leader of a new process group and returns its process id; throws HarnessError
/// when it cannot be executed. ChildProcess is the owner to use.
pid_t spawn(const Launch& launch);

}  // namespace tilwin::desktop
