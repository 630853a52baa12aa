#pragma once

#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

inline void paintBackground(Session& session) {
  session.start("xsetroot", {"xsetroot", "-solid", "#2e5a6b"}).waitFor(answerTimeout);
}

}  // namespace tilwin::desktop
