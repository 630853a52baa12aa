#include "tests/macos/ownership/OwnershipListener.h"

#include "tests/macos/c/objects/CountedObjects.h"

namespace tilwin::macos {

void OwnershipListener::OnTestEnd(const testing::TestInfo&) {
  for (const auto& finding : c::objects().takeFindings()) ADD_FAILURE() << finding;
}

}  // namespace tilwin::macos
