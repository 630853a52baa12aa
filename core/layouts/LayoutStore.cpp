#include "core/layouts/LayoutStore.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <variant>

#include "core/layouts/LayoutCoding.h"
#include "core/support/LocalizedOrder.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;

bool isAutomaticFor(const Layout& layout, const DisplaySignature& signature) {
  return layout.isAutomatic && layout.signature == signature;
}

}  // namespace

std::optional<LayoutStore> LayoutStore::read(const fs::path& from) {
  const auto text = AtomicFile::read(from, maximumFileSize);
  if (!text) return std::nullopt;
  auto decoded = decodeJson<LayoutStore>(*text);
  if (auto* store = std::get_if<LayoutStore>(&decoded)) return std::move(*store);
  return std::nullopt;
}

LayoutStore LayoutStore::load(const fs::path& from) { return read(from).value_or(LayoutStore{}); }

void LayoutStore::write(const fs::path& to) const { AtomicFile::replace(to, textFor(to)); }

std::optional<AtomicFile::Stamp> LayoutStore::write(const fs::path& to,
                                                    const std::optional<AtomicFile::Stamp>& old) const {
  return AtomicFile::replaceUnchanged(to, textFor(to), old);
}

std::string LayoutStore::textFor(const fs::path& file) const {
  auto encoded = encodePrettyJson(*this);
  if (const auto* error = std::get_if<JsonError>(&encoded)) throw *error;
  auto& text = std::get<std::string>(encoded);
  if (text.size() > maximumFileSize) {
    throw fs::filesystem_error("too many layouts", file, std::make_error_code(std::errc::file_too_large));
  }
  return std::move(text);
}

std::vector<Layout> LayoutStore::userLayouts() const {
  std::vector<Layout> result;
  std::copy_if(layouts.begin(), layouts.end(), std::back_inserter(result),
               [](const Layout& layout) { return !layout.isAutomatic; });
  const LocalizedOrder order;
  std::stable_sort(result.begin(), result.end(), [&](const Layout& first, const Layout& second) {
    return order.precedes(first.name, second.name);
  });
  return result;
}

std::optional<Layout> LayoutStore::automatic(const DisplaySignature& signature) const {
  const auto found = std::find_if(layouts.begin(), layouts.end(),
                                  [&](const Layout& layout) { return isAutomaticFor(layout, signature); });
  if (found == layouts.end()) return std::nullopt;
  return *found;
}

void LayoutStore::save(Layout layout) {
  const auto place = std::find_if(layouts.begin(), layouts.end(),
                                  [&](const Layout& other) { return other.id == layout.id; });
  if (place == layouts.end()) {
    layouts.push_back(std::move(layout));
  } else {
    *place = std::move(layout);
  }
}

void LayoutStore::remove(const Uuid& id) {
  std::erase_if(layouts, [&](const Layout& layout) { return layout.id == id; });
}

void LayoutStore::rename(const Uuid& id, std::string to) {
  const auto found =
      std::find_if(layouts.begin(), layouts.end(), [&](const Layout& layout) { return layout.id == id; });
  if (found != layouts.end()) found->name = std::move(to);
}

void LayoutStore::setAutomatic(Layout layout) {
  if (!layout.signature) return;
  layout.isAutomatic = true;
  const auto earlier = std::find_if(layouts.begin(), layouts.end(), [&](const Layout& other) {
    return isAutomaticFor(other, *layout.signature);
  });
  if (earlier == layouts.end()) {
    layouts.push_back(std::move(layout));
  } else {
    layout.id = earlier->id;
    *earlier = std::move(layout);
  }
  keepNewestAutomatic();
}

void LayoutStore::keepNewestAutomatic() {
  std::vector<std::size_t> automatic;
  for (std::size_t index = 0; index < layouts.size(); ++index) {
    if (layouts[index].isAutomatic) automatic.push_back(index);
  }
  if (automatic.size() <= maximumAutomatic) return;
  std::stable_sort(automatic.begin(), automatic.end(), [&](std::size_t first, std::size_t second) {
    return layouts[first].updatedAt > layouts[second].updatedAt;
  });
  // Erased by index, not by id: a file edited by hand may contain the same id twice.
  automatic.erase(automatic.begin(), automatic.begin() + maximumAutomatic);
  std::sort(automatic.rbegin(), automatic.rend());
  for (const std::size_t index : automatic)
    layouts.erase(layouts.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace tilwin
