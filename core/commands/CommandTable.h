#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tilwin {

/// What `tilwin` can be told to do from a shell, a key binding or another program.
enum class CommandId : std::uint8_t {
  snap,
  area,
  layoutList,
  layoutApply,
  layoutSave,
  layoutDelete,
  place,
  windows,
  displays,
  actions,
  areas,
  doctor,
  get,
  set,
  watch,
  settings,
  quit,
  help,
  version,
};

/// What is needed to carry a command out.
enum class CommandReach : std::uint8_t {
  text,      ///< nothing: it only prints
  desktop,   ///< a desktop; a running instance does it, else the called program itself
  instance,  ///< a running instance
};

/// What an argument of a command names. Completions and messages depend on it.
enum class ParameterKind : std::uint8_t {
  action,
  area,
  layout,
  newLayout,
  sentence,
  settingKey,
  settingValue,
  command
};

struct CommandParameter {
  std::string_view name{};  ///< as help shows it, such as "ACTION"; empty: no parameter
  ParameterKind kind = ParameterKind::action;
  bool isOptional = false;
};

/// A word that changes how a command is carried out. A command has at most one.
struct CommandOption {
  std::string_view word{};  ///< with its hyphens; empty: none
  std::string_view summary{};

  bool operator==(const CommandOption&) const = default;
};

/// One row of the table of commands. The parser, the help, the man page, the completions of shells and the
/// reference are all made from these rows.
struct CommandSpec {
  CommandId id = CommandId::snap;
  std::string_view words{};  ///< one word, or two: "layout apply"
  std::array<CommandParameter, 2> parameters{};
  CommandReach reach = CommandReach::desktop;
  bool movesWindows = false;
  CommandOption option{};
  std::string_view summary{};
  std::string_view details{};  ///< for the man page and the reference; may be empty
  std::string_view example{};  ///< arguments as in a shell

  /// The parameters that there are.
  [[nodiscard]] constexpr std::span<const CommandParameter> used() const {
    std::size_t count = 0;
    while (count < parameters.size() && !parameters[count].name.empty()) ++count;
    return std::span(parameters).first(count);
  }
};

struct CommandTable {
  /// Every command, in the order in which help lists them.
  [[nodiscard]] static std::span<const CommandSpec> all();
  [[nodiscard]] static const CommandSpec& spec(CommandId id);
  /// The first word of a row.
  [[nodiscard]] static std::string_view group(const CommandSpec& spec);
  /// The second word; empty if there is one word only.
  [[nodiscard]] static std::string_view member(const CommandSpec& spec);
  /// Each first word once.
  [[nodiscard]] static std::vector<std::string_view> groups();
  /// Each option that some command has, once.
  [[nodiscard]] static std::vector<CommandOption> options();
  /// The second words of a group; none of a command of one word.
  [[nodiscard]] static std::vector<std::string_view> members(std::string_view of);
};

/// The exit statuses of the commands.
namespace exit_status {

inline constexpr int done = 0;
inline constexpr int couldNot = 1;
inline constexpr int wrongUse = 2;
inline constexpr int needsInstance = 3;

}  // namespace exit_status

struct ExitStatusMeaning {
  int status = 0;
  std::string_view meaning{};
};

[[nodiscard]] std::span<const ExitStatusMeaning> exitStatuses();

}  // namespace tilwin
