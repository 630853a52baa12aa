#include "platform/macos/system/MacSystemReport.h"

#import <Foundation/Foundation.h>
#include <sys/utsname.h>

#include <string>

#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

std::string kernel() {
  utsname names{};
  if (::uname(&names) != 0) return {};
  return std::string(&names.sysname[0]) + " " + &names.release[0] + " " + &names.machine[0];
}

}  // namespace

SystemFacts MacSystemReport::facts() {
  SystemFacts facts;
  if (const auto version = bundle_.version(); !version.empty()) facts.versions.push_back({"Tilwin", version});
  facts.versions.push_back({"System", utf8([[NSProcessInfo processInfo] operatingSystemVersionString])});
  facts.versions.push_back({"Kernel", kernel()});
  facts.home = std::string(utf8(NSHomeDirectory()));
  return facts;
}

}  // namespace tilwin::macos
