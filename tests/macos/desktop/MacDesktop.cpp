#include "tests/macos/desktop/MacDesktop.h"

#include <cstdlib>

namespace tilwin::macos {
namespace {

desktop::Session* session = nullptr;

}  // namespace

desktop::Session& macDesktop() { return *session; }

MacDesktop::MacDesktop() {
  session = &session_;
  for (const auto& variable : session_.environment().strings()) {
    const auto equals = variable.find('=');
    ::setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
  }
}

MacDesktop::~MacDesktop() { session = nullptr; }

}  // namespace tilwin::macos
