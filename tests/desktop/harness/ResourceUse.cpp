#include "tests/desktop/harness/ResourceUse.h"

#include <unistd.h>
#include <xcb/res.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace tilwin::desktop {

namespace {

/// Of /proc/PID/stat (proc(5)), counted from the state, which follows the name in parentheses.
constexpr std::size_t userTicksField = 11;
constexpr std::size_t systemTicksField = 12;
constexpr std::size_t threadsField = 17;
constexpr std::size_t residentPagesField = 21;

std::vector<std::string> statFields(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string text;
  std::getline(file, text);
  const auto nameEnd = text.rfind(')');
  if (nameEnd == std::string::npos) return {};
  std::istringstream rest(text.substr(nameEnd + 1));
  std::vector<std::string> fields;
  for (std::string field; rest >> field;) fields.push_back(field);
  return fields;
}

int countOpenFiles(pid_t process) {
  std::error_code error;
  int count = 0;
  for (std::filesystem::directory_iterator at("/proc/" + std::to_string(process) + "/fd", error), end;
       !error && at != end; at.increment(error)) {
    ++count;
  }
  return count;
}

/// The resource id bases of the process's connections.
std::vector<std::uint32_t> connectionsOf(xcb_connection_t* xcb, pid_t process) {
  const xcb_res_client_id_spec_t everyClient{XCB_NONE, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
  const XcbPtr<xcb_res_query_client_ids_reply_t> reply(
      xcb_res_query_client_ids_reply(xcb, xcb_res_query_client_ids(xcb, 1, &everyClient), nullptr));
  std::vector<std::uint32_t> found;
  if (!reply) return found;
  for (auto at = xcb_res_query_client_ids_ids_iterator(reply.get()); at.rem > 0;
       xcb_res_client_id_value_next(&at)) {
    if (xcb_res_client_id_value_value_length(at.data) < 1) continue;
    if (static_cast<pid_t>(*xcb_res_client_id_value_value(at.data)) == process) {
      found.push_back(at.data->spec.client);
    }
  }
  return found;
}

void addClient(XConnection& connection, std::uint32_t client, ServerUse& use) {
  xcb_connection_t* xcb = connection.get();
  const XcbPtr<xcb_res_query_client_resources_reply_t> resources(
      xcb_res_query_client_resources_reply(xcb, xcb_res_query_client_resources(xcb, client), nullptr));
  if (resources) {
    const xcb_res_type_t* types = xcb_res_query_client_resources_types(resources.get());
    for (std::size_t i = 0; i < resources->num_types; ++i) {
      use.counts[connection.atomName(types[i].resource_type)] += types[i].count;
    }
  }
  const XcbPtr<xcb_res_query_client_pixmap_bytes_reply_t> pixmaps(
      xcb_res_query_client_pixmap_bytes_reply(xcb, xcb_res_query_client_pixmap_bytes(xcb, client), nullptr));
  if (pixmaps)
    use.pixmapBytes += (static_cast<std::uint64_t>(pixmaps->bytes_overflow) << 32U) + pixmaps->bytes;
}

}  // namespace

std::optional<ProcessUse> useOf(pid_t process) {
  const auto fields = statFields(process);
  if (fields.size() <= residentPagesField) return std::nullopt;
  const std::int64_t ticks = std::stoll(fields[userTicksField]) + std::stoll(fields[systemTicksField]);
  return ProcessUse{.residentKiB = std::stoll(fields[residentPagesField]) * sysconf(_SC_PAGESIZE) / 1024,
                    .cpuTime = Milliseconds{ticks * 1000 / sysconf(_SC_CLK_TCK)},
                    .threads = std::stoi(fields[threadsField]),
                    .openFiles = countOpenFiles(process)};
}

std::optional<ServerUse> serverUseOf(XConnection& connection, pid_t process) {
  const auto clients = connectionsOf(connection.get(), process);
  if (clients.empty()) return std::nullopt;
  ServerUse use;
  for (const auto client : clients) addClient(connection, client, use);
  return use;
}

}  // namespace tilwin::desktop
