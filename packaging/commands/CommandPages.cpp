#include "packaging/commands/CommandPages.h"

#include <array>

#include "packaging/commands/Completions.h"
#include "packaging/commands/ManPage.h"
#include "packaging/commands/Reference.h"

namespace tilwin {
namespace {

constexpr std::array pages = std::to_array<CommandPage>({
    {"packaging/linux/tilwin.1", manPage},
    {"packaging/linux/completions/tilwin", bashCompletion},
    {"packaging/linux/completions/_tilwin", zshCompletion},
    {"packaging/linux/completions/tilwin.fish", fishCompletion},
    {"docs/commands.md", commandReference},
});

}  // namespace

std::span<const CommandPage> CommandPages::all() { return pages; }

}  // namespace tilwin
