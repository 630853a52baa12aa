#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/soak/Soak.h"

namespace {

using tilwin::desktop::soak::SoakArguments;

[[noreturn]] void usage() {
  std::fputs("usage: soak-tests --tilwin PROGRAM [--seconds 120] [--seed N [--acts K]] [--tell]\n", stderr);
  std::exit(2);
}

std::uint32_t numberIn(const char* text) {
  char* end = nullptr;
  const unsigned long number = std::strtoul(text, &end, 10);
  if (*text == '\0' || *end != '\0' || number > UINT32_MAX) usage();
  return static_cast<std::uint32_t>(number);
}

void read(std::string_view option, const char* value, SoakArguments& into) {
  if (option == "--tilwin") {
    into.tilwin = std::filesystem::absolute(value);
  } else if (option == "--seconds") {
    into.time = std::chrono::seconds{numberIn(value)};
  } else if (option == "--seed") {
    into.seed = numberIn(value);
  } else if (option == "--acts") {
    into.acts = numberIn(value);
  } else {
    usage();
  }
}

}  // namespace

int main(int argc, char** argv) {
  const tilwin::desktop::EndOnSignal endOnSignal;
  testing::InitGoogleTest(&argc, argv);
  auto& arguments = tilwin::desktop::soak::soakArguments();
  arguments.seed = std::random_device()();
  for (int index = 1; index < argc; ++index) {
    if (std::string_view(argv[index]) == "--tell") {
      arguments.isTold = true;
    } else if (index + 1 < argc) {
      read(argv[index], argv[index + 1], arguments);
      ++index;
    } else {
      usage();
    }
  }
  if (arguments.tilwin.empty()) usage();
  return RUN_ALL_TESTS();
}
