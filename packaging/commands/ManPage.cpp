#include "packaging/commands/ManPage.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/commands/CommandParser.h"
#include "core/commands/CommandTable.h"

namespace tilwin {
namespace {

struct Escape {
  char character;
  std::string_view written;
};

constexpr std::array escapes = std::to_array<Escape>({
    {'-', "\\-"},
    {'\\', "\\e"},
    {'"', "\\(dq"},
});

/// Text as roff shows it: hyphens that can be copied into a shell, and no line that is taken for a macro.
std::string roff(std::string_view text) {
  std::string result;
  for (const char each : text) {
    const auto* const escape = std::ranges::find(escapes, each, &Escape::character);
    result += escape == escapes.end() ? std::string(1, each) : std::string(escape->written);
  }
  return result.starts_with('.') || result.starts_with('\'') ? "\\&" + result : result;
}

std::string paragraph(std::string_view text) { return text.empty() ? "" : roff(text) + "\n"; }

std::string command(const CommandSpec& spec) {
  std::string text = ".TP\n.B tilwin " + roff(CommandParser::usage(spec)) + "\n";
  text += paragraph(std::string(spec.summary) + ".") + paragraph(spec.details);
  if (spec.reach == CommandReach::instance) text += paragraph("Tilwin must be running.");
  if (!spec.example.empty()) text += ".br\nExample:\n.B tilwin " + roff(spec.example) + "\n";
  return text;
}

constexpr std::string_view manHead = R"(.\" Made from the table of commands; edit that.
.TH TILWIN 1 "" "Tilwin" "User Commands"
.SH NAME
tilwin \- snap windows by shortcuts, drags and commands
.SH SYNOPSIS
.B tilwin
.RI [ COMMAND\  ...]
.SH DESCRIPTION
Tilwin arranges windows on an X11 desktop. Without a command it starts; if it runs already, its settings open.
.PP
A command is carried out by the running Tilwin. Without one,
.BR snap ,
.BR area ,
.BR place ,
.B layout apply
and what only lists something are done by the called program itself, so that a window manager that keeps a key
for itself can call
.B tilwin snap
when it is pressed.
.PP
Points are X pixels. A setting, a layout or an area that a command names is one of the user's.
.SH COMMANDS
)";

constexpr std::string_view manTail = R"(.TP
.B \-\-status
Print whether windows can be moved, the number of displays and the text that names this set of displays.
.TP
.B \-\-shadow\-report
Print the report on the log of drags.
.TP
.BR \-\-enable\-login\-item ", " \-\-disable\-login\-item
Start Tilwin at login, or no longer.
.SH ENVIRONMENT
.TP
.B DISPLAY
The X display. Each has a Tilwin of its own.
.TP
.B XDG_RUNTIME_DIR
Where the running Tilwin listens for commands.
.SH FILES
.TP
.I $XDG_DATA_HOME/Tilwin/layouts.json
The saved layouts.
.TP
.I $XDG_DATA_HOME/Tilwin/shadow.jsonl
The log of drags, if it is kept.
)";

}  // namespace

std::string manPage() {
  std::string text(manHead);
  for (const CommandSpec& spec : CommandTable::all()) text += command(spec);
  text += ".SH EXIT STATUS\n";
  for (const ExitStatusMeaning& meaning : exitStatuses()) {
    text += ".TP\n.B " + std::to_string(meaning.status) + "\n" + paragraph(meaning.meaning);
  }
  text += ".SH OPTIONS\n";
  for (const CommandOption& option : CommandTable::options())
    text += ".TP\n.B " + roff(option.word) + "\n" + paragraph(option.summary);
  return text.append(manTail);
}

}  // namespace tilwin
