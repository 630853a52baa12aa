#include "tests/desktop/harness/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

void Descriptor::close() {
  if (number_ >= 0) ::close(std::exchange(number_, -1));
}

Pipe Pipe::make() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw HarnessError("no pipe to be had");
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

}  // namespace tilwin::desktop
