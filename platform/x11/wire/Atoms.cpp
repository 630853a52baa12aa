#include "platform/x11/wire/Atoms.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

Atoms::Atoms(xcb_connection_t* connection) {
  std::vector<Pending<xcb_intern_atom_reply>> asked;
  asked.reserve(atomNames.size());
  for (const auto name : atomNames) {
    asked.emplace_back(connection,
                       xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()));
  }
  std::ranges::transform(asked, values_.begin(), [](auto& pending) {
    const auto reply = pending.collect();
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  });
}

}  // namespace tilwin::x11
