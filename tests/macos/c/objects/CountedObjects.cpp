#include "tests/macos/c/objects/CountedObjects.h"

#include <algorithm>

namespace tilwin::macos::c {

CountedObjects& CountedObjects::all() {
  // Never destroyed: static holders of references are destroyed in any order.
  static auto* const objects = new CountedObjects;
  return *objects;
}

CFTypeRef CountedObjects::keep(std::unique_ptr<CountedObject> object, int owners) {
  const CFTypeRef reference = object.get();
  std::string description = object->description();
  counted_.insert_or_assign(reference, Counted{std::move(object), owners, std::move(description)});
  return reference;
}

void CountedObjects::retain(CFTypeRef object) {
  if (find(object, "CFRetain") == nullptr) return;
  int& owners = counted_.at(object).owners;
  if (owners > 0) ++owners;
}

void CountedObjects::release(CFTypeRef object) {
  const auto found = counted_.find(object);
  if (found == counted_.end()) {
    note("CFRelease", "got", object == nullptr ? "NULL" : "what is no object");
    return;
  }
  Counted& counted = found->second;
  if (counted.owners == constant) return;
  if (counted.owners == 0) {
    note("CFRelease", "released once more", counted.description);
    return;
  }
  if (--counted.owners == 0) counted.object->end();
}

int CountedObjects::owners(CFTypeRef of) const {
  const auto found = counted_.find(of);
  return found == counted_.end() ? 0 : found->second.owners;
}

CountedObject* CountedObjects::find(CFTypeRef reference, std::string_view user) {
  const auto found = counted_.find(reference);
  if (found == counted_.end()) {
    note(user, "got", reference == nullptr ? "NULL" : "what is no object");
    return nullptr;
  }
  if (found->second.owners == 0) note(user, "used after its release", found->second.description);
  return found->second.object.get();
}

void CountedObjects::note(std::string_view user, std::string_view what, std::string_view object) {
  findings_.push_back(std::string(user) + " " + std::string(what) + " " + std::string(object));
}

bool CountedObjects::hasOwned() const {
  return std::any_of(counted_.begin(), counted_.end(),
                     [](const auto& each) { return each.second.owners > 0; });
}

std::vector<std::string> CountedObjects::takeFindings() {
  for (const auto& [reference, counted] : counted_) {
    if (counted.owners <= 0) continue;
    findings_.push_back("Never released: " + counted.description +
                        ", owners: " + std::to_string(counted.owners));
  }
  std::erase_if(counted_, [](const auto& each) { return each.second.owners != constant; });
  return std::exchange(findings_, {});
}

}  // namespace tilwin::macos::c
