#include "platform/x11/wire/OfferedByServer.h"

#include <xcb/randr.h>
#include <xcb/shape.h>
#include <xcb/xinput.h>
#include "platform/x11/wire/XkbProtocol.h"

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

bool has(xcb_connection_t* connection, xcb_extension_t& extension) {
  const auto* data = xcb_get_extension_data(connection, &extension);
  return data != nullptr && data->present != 0;
}

ServerNeeds::Version randrVersion(xcb_connection_t* connection) {
  if (!has(connection, xcb_randr_id)) return {};
  const auto reply =
      Pending<xcb_randr_query_version_reply>(
          connection, xcb_randr_query_version(connection, XCB_RANDR_MAJOR_VERSION, XCB_RANDR_MINOR_VERSION))
          .collect();
  return reply ? ServerNeeds::Version{reply->major_version, reply->minor_version} : ServerNeeds::Version{};
}

ServerNeeds::Version xinputVersion(xcb_connection_t* connection) {
  if (!has(connection, xcb_input_id)) return {};
  const auto reply =
      Pending<xcb_input_xi_query_version_reply>(connection, xcb_input_xi_query_version(connection, 2, 2))
          .collect();
  return reply ? ServerNeeds::Version{reply->major_version, reply->minor_version} : ServerNeeds::Version{};
}

ServerNeeds::Version xkbVersion(xcb_connection_t* connection) {
  if (!has(connection, xcb_xkb_id)) return {};
  const auto reply =
      Pending<xcb_xkb_use_extension_reply>(
          connection, xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION))
          .collect();
  return reply && reply->supported != 0 ? ServerNeeds::Version{reply->serverMajor, reply->serverMinor}
                                        : ServerNeeds::Version{};
}

ServerNeeds::Version shapeVersion(xcb_connection_t* connection) {
  if (!has(connection, xcb_shape_id)) return {};
  const auto reply =
      Pending<xcb_shape_query_version_reply>(connection, xcb_shape_query_version(connection)).collect();
  return reply ? ServerNeeds::Version{reply->major_version, reply->minor_version} : ServerNeeds::Version{};
}

}  // namespace

ServerNeeds offeredBy(const X11Connection& connection) {
  xcb_prefetch_extension_data(connection.get(), &xcb_randr_id);
  xcb_prefetch_extension_data(connection.get(), &xcb_input_id);
  xcb_prefetch_extension_data(connection.get(), &xcb_xkb_id);
  xcb_prefetch_extension_data(connection.get(), &xcb_shape_id);
  return {.randr = randrVersion(connection.get()),
          .xinput = xinputVersion(connection.get()),
          .xkb = xkbVersion(connection.get()),
          .shape = shapeVersion(connection.get())};
}

}  // namespace tilwin::x11
