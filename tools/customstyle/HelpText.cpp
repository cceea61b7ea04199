#include "tools/customstyle/HelpText.h"

#include <fmt/format.h>

#include <string_view>
#include <utility>
#include <vector>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kColumn = 22;

const std::pair<Purpose, const char*> kPurposes[] = {
    {Purpose::Judge, "Find out whether a style is right:"},
    {Purpose::Ask, "Ask what the map will look like:"},
    {Purpose::Write, "Write style files:"},
    {Purpose::SetUp, "Set up editors and shells:"},
};

std::string row(const std::string& left, const std::string& right) {
    const std::string head = "  " + left;
    return head + wrapped(right, kWidth, kColumn, head.size() + 1 > kColumn ? kColumn : head.size());
}

// A paragraph; an example, which starts with a blank or has lines of its own, stays as it is.
std::string paragraph(const std::string& text) {
    const bool keepsLines = text.starts_with(' ') || text.find('\n') != std::string::npos;
    return "\n" + (keepsLines ? text + "\n" : wrapped(text, kWidth));
}

// How an option is shown with its value: "-o, --output OUT", "FILE...".
std::string shownNames(const Option& option) {
    if (option.isArgument()) {
        return option.names.substr(0, option.names.find(',')) + (option.isRepeatable() ? "..." : "");
    }
    std::string names;
    for (const char c : option.names) names += c == ',' ? std::string(", ") : std::string(1, c);
    return option.value.empty() ? names : names + " " + option.value;
}

std::string rowsOf(const Command& command, bool arguments) {
    std::string rows;
    for (const Option& option : command.options) {
        if (!option.isHidden && option.isArgument() == arguments) rows += row(shownNames(option), option.help);
    }
    return rows;
}

std::string glossaryRows(const Glossary& glossary) {
    if (glossary.terms.empty()) return {};
    std::string rows = "\n" + glossary.title + ":\n";
    for (const Glossary::Term& term : glossary.terms) rows += row(term.name, term.meaning);
    return rows;
}

std::string statusRows(const Command& command) {
    std::string rows = "\nExit status:\n";
    for (const ExitStatus& each : command.statuses) rows += row(std::to_string(each.status), each.meaning);
    return rows;
}

std::string exampleRows(const Command& command) {
    if (command.examples.empty()) return {};
    std::string rows = "\nExamples:\n";
    for (const ExampleCall& each : command.examples) rows += fmt::format("  # {}\n  {}\n", each.what, each.call);
    return rows;
}

// "customstyle diff [OPTION]... A B".
std::string usageOf(const Command& command) {
    std::string usage = fmt::format("customstyle {} [OPTION]...", command.name);
    for (const Option& option : command.options) {
        if (option.isHidden || !option.isArgument()) continue;
        usage += option.isRequired ? " " + shownNames(option) : fmt::format(" [{}]", shownNames(option));
    }
    return usage;
}

}  // namespace

const char* programSummary() {
    return "Check, explain, compare, test and rewrite custom map styles.";
}

std::string programHelp(std::span<const Command> commands) {
    std::string text =
        fmt::format("Usage: customstyle COMMAND [OPTION]... [ARGUMENT]...\n{}", paragraph(programSummary()));
    for (const auto& [purpose, title] : kPurposes) {
        text += fmt::format("\n{}\n", title);
        for (const Command& command : commands) {
            if (command.purpose == purpose && !command.isHidden) text += row(command.name, command.summary);
        }
    }
    text += "\nOptions:\n" + row("-h, --help", "Print this help, or that of a command") +
            row("--version", "Print the version");
    return text + "\nExit status:\n" + row("0", "All is well") + row("1", "The files are not good, or not equal") +
           row("2", "Wrong usage, or a file that cannot be read or written");
}

std::string commandHelp(const Command& command) {
    std::string text = fmt::format("Usage: {}\n\n{}.\n", usageOf(command), command.summary);
    for (const std::string& each : command.description) text += paragraph(each);
    const std::string arguments = rowsOf(command, true);
    if (!arguments.empty()) text += "\nArguments:\n" + arguments;
    text += "\nOptions:\n" + rowsOf(command, false) + row("-h, --help", "Print this help");
    return text + glossaryRows(command.glossary) + statusRows(command) + exampleRows(command);
}

}  // namespace customstyle_tool
