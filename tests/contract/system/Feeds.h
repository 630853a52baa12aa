#pragma once

#include <string>
#include <vector>

namespace tilwin::contract {

/// An item of an appcast.
inline std::string release(const std::string& version, const std::string& page) {
  return "<item><title>Tilwin</title><link>" + page + "</link><sparkle:version>" + version +
         "</sparkle:version></item>";
}

/// An appcast with these items; `page` is that of the program.
inline std::string feedOf(const std::vector<std::string>& items,
                          const std::string& page = "https://example.org/") {
  std::string all;
  for (const auto& item : items) all += item;
  return "<rss version=\"2.0\" "
         "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel>"
         "<title>Tilwin</title><link>" +
         page + "</link>" + all + "</channel></rss>";
}

}  // namespace tilwin::contract
