#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/keys/HotKeyCenter.h"
#include "app/settings/SettingsStore.h"
#include "core/doctor/Diagnosis.h"
#include "core/doctor/DoctorReport.h"
#include "core/geometry/WindowProvider.h"
#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/DesktopReport.h"
#include "platform/ports/DesktopWords.h"
#include "platform/ports/StatusItem.h"
#include "platform/ports/SystemReport.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin {

/// Finds out what is wrong with this desktop, and writes what the report of a bug needs. Moves and changes
/// nothing. Main thread only.
class Doctor {
public:
  struct Parts {
    SettingsStore& store;
    UserDefaults& userDefaults;
    WindowProvider& windows;
    AccessibilityTrust& trust;
    Bundle& bundle;
    DesktopReport& desktop;
    SystemReport& system;
    const DesktopWords& words;
  };
  /// What only a running instance knows.
  struct Instance {
    const StatusItem& statusItem;
    const HotKeyCenter& hotKeys;
  };

  /// All parts must outlive this.
  explicit Doctor(const Parts& parts, std::optional<Instance> instance = std::nullopt)
      : parts_(parts), instance_(std::move(instance)) {}

  [[nodiscard]] std::string report(DoctorReport::Names names);
  [[nodiscard]] Diagnosis diagnose();

private:
  [[nodiscard]] std::vector<ShortcutFacts> shortcuts() const;
  [[nodiscard]] std::vector<PressFacts> presses() const;
  [[nodiscard]] std::vector<FileFacts> files(const SystemFacts& system);

  Parts parts_;
  std::optional<Instance> instance_;
};

}  // namespace tilwin
