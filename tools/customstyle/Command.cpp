#include "tools/customstyle/Command.h"

#include <algorithm>
#include <tuple>

namespace customstyle_tool {
namespace {

// Filled before main starts, by objects in other files, so it must not need construction itself.
constinit const Registration* s_first = nullptr;

}  // namespace

Registration::Registration(Command (*make)()) noexcept : m_make(make), m_next(s_first) {
    s_first = this;
}

std::vector<Command> registeredCommands() {
    std::vector<Command> commands;
    for (const Registration* each = s_first; each != nullptr; each = each->m_next) commands.push_back(each->m_make());
    std::ranges::sort(commands, {}, [](const Command& each) { return std::tie(each.purpose, each.name); });
    return commands;
}

std::vector<std::string> visibleNames(std::span<const Command> commands) {
    std::vector<std::string> names;
    for (const Command& command : commands) {
        if (!command.isHidden) names.push_back(command.name);
    }
    return names;
}

}  // namespace customstyle_tool
