#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/doctor/Doctor.h"
#include "app/layouts/LayoutKeeper.h"
#include "app/settings/SettingsStore.h"
#include "core/commands/CommandParser.h"
#include "core/commands/CommandReply.h"
#include "core/geometry/WindowProvider.h"
#include "core/snap/SnapController.h"
#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/DesktopWords.h"
#include "platform/ports/Workspace.h"

namespace tilwin {

/// Carries out the commands of `CommandTable`: in the running instance, or in the process that was called.
/// Main thread only.
class CommandRunner {
public:
  struct Parts {
    SettingsStore& store;
    SnapController& controller;
    LayoutKeeper& layouts;
    WindowProvider& windows;
    AccessibilityTrust& trust;
    Workspace& workspace;
    const DesktopWords& words;
    Doctor& doctor;
  };
  /// What only a running instance can do.
  struct Instance {
    std::function<void()> showSettings;
    std::function<void()> quit;
  };

  /// All parts must outlive this. Without an instance, commands that need one are refused.
  explicit CommandRunner(const Parts& parts, std::optional<Instance> instance = std::nullopt)
      : parts_(parts), instance_(std::move(instance)) {}

  /// The arguments of the program, without its name.
  CommandReply run(std::span<const std::string> arguments);
  /// Where no instance runs: the commands that need no desktop, and what to say of misuse and of those that
  /// need an instance. Nothing for any other.
  [[nodiscard]] static std::optional<CommandReply> runWithoutDesktop(std::span<const std::string> arguments,
                                                                     std::string_view version);

private:
  struct Entry;

  CommandReply carryOut(const CommandRequest& request);
  CommandReply snap(const CommandRequest& request);
  CommandReply area(const CommandRequest& request);
  CommandReply layoutList(const CommandRequest& request);
  CommandReply layoutApply(const CommandRequest& request);
  CommandReply layoutSave(const CommandRequest& request);
  CommandReply layoutDelete(const CommandRequest& request);
  CommandReply place(const CommandRequest& request);
  CommandReply windows(const CommandRequest& request);
  CommandReply displays(const CommandRequest& request);
  CommandReply actions(const CommandRequest& request);
  CommandReply areas(const CommandRequest& request);
  CommandReply doctor(const CommandRequest& request);
  CommandReply get(const CommandRequest& request);
  CommandReply set(const CommandRequest& request);
  CommandReply watch(const CommandRequest& request);
  CommandReply settings(const CommandRequest& request);
  CommandReply quit(const CommandRequest& request);

  [[nodiscard]] std::string whyNotMoved(std::optional<SnapAction> action);

  Parts parts_;
  std::optional<Instance> instance_;
};

}  // namespace tilwin
