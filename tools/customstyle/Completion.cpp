#include "tools/customstyle/Completion.h"

#include <fmt/format.h>

#include <functional>
#include <vector>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

std::vector<std::string> flagsOf(const Option& option) {
    std::vector<std::string> flags;
    for (const std::string& name : split(option.names, ',')) {
        if (name.starts_with('-')) flags.push_back(name);
    }
    return flags;
}

// Text between single quotes, in which no shell expands anything.
std::string quoted(const std::string& text, const char* quote) {
    std::string result = "'";
    for (const char c : text) result += c == '\'' ? std::string(quote) : std::string(1, c);
    return result + "'";
}

std::string inShell(const std::string& text) {
    return quoted(text, "'\\''");
}

std::string inFish(const std::string& text) {
    return quoted(text, "\\'");
}

void forEachOption(const Command& command, const std::function<void(const Option&)>& use) {
    for (const Option& option : command.options) {
        if (!option.isHidden) use(option);
    }
}

// The first sentence without a full stop.
std::string shortHelp(const Option& option) {
    return option.help.substr(0, option.help.find_first_of(";:("));
}

const Option* argumentOf(const Command& command) {
    for (const Option& option : command.options) {
        if (option.isArgument() && !option.isHidden) return &option;
    }
    return nullptr;
}

// ---- bash -----------------------------------------------------------------------------------------------------------

constexpr char kBashHead[] = R"(# Completion for customstyle in bash; made by: customstyle completion bash

_customstyle_words() {  # _customstyle_words CURRENT WORD...
    local current=$1
    shift
    mapfile -t COMPREPLY < <(compgen -W "$*" -- "$current")
}

_customstyle_paths() {  # _customstyle_paths -f|-d CURRENT
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$2")
}

_customstyle() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _customstyle_words "$current" )";

constexpr char kBashTail[] = R"(    esac
}

complete -F _customstyle customstyle
)";

std::string bashOffer(const Option& option) {
    switch (option.offer) {
        case Offer::Files:
            return "_customstyle_paths -f \"$current\"";
        case Offer::Directories:
            return "_customstyle_paths -d \"$current\"";
        case Offer::Choices:
            return fmt::format("_customstyle_words \"$current\" {}", fmt::join(option.choices, " "));
        case Offer::Nothing:
            break;
    }
    return ":";
}

std::string bashCommand(const Command& command) {
    std::string text;
    std::vector<std::string> names;
    forEachOption(command, [&](const Option& option) {
        for (const std::string& flag : flagsOf(option)) {
            if (!option.isArgument() && flag.starts_with("--")) names.push_back(flag);
            if (option.isFlag()) continue;
            text +=
                fmt::format("        {}:{})\n            {}\n            ;;\n", command.name, flag, bashOffer(option));
        }
    });
    const Option* const argument = argumentOf(command);
    text += fmt::format(
        "        {}:*)\n            if [[ $current == -* ]]; then\n"
        "                _customstyle_words \"$current\" {} --help\n            else\n"
        "                {}\n            fi\n            ;;\n",
        command.name, fmt::join(names, " "), argument == nullptr ? ":" : bashOffer(*argument));
    return text;
}

// ---- zsh ------------------------------------------------------------------------------------------------------------

std::string zshText(std::string text) {
    std::string result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\') result += '\\';
        result += c;
    }
    return result;
}

std::string zshOffer(const Option& option) {
    switch (option.offer) {
        case Offer::Files:
            return "_files";
        case Offer::Directories:
            return "_files -/";
        case Offer::Choices:
            return fmt::format("({})", fmt::join(option.choices, " "));
        case Offer::Nothing:
            break;
    }
    return " ";
}

std::string zshCommand(const Command& command) {
    std::string specs;
    const auto add = [&](const std::string& spec) { specs += " \\\n                " + inShell(spec); };
    forEachOption(command, [&](const Option& option) {
        if (option.isArgument()) {
            const std::string place = option.isRepeatable() ? "*" : option.isRequired ? "" : ":";
            return add(fmt::format("{}:{}:{}", place, zshText(option.names.substr(0, option.names.find(','))),
                                   zshOffer(option)));
        }
        const char* const repeat = option.isRepeatable() ? "*" : "";
        const std::string value = option.isFlag() ? "" : fmt::format(":{}:{}", option.value, zshOffer(option));
        for (const std::string& flag : flagsOf(option)) {
            add(fmt::format("{}{}[{}]{}", repeat, flag, zshText(shortHelp(option)), value));
        }
    });
    return fmt::format(
        "        {})\n            _arguments{} \\\n                '--help[Print a help]'\n            ;;\n",
        command.name, specs);
}

// ---- fish -----------------------------------------------------------------------------------------------------------

std::string fishOffer(const Option& option) {
    switch (option.offer) {
        case Offer::Files:
            return " -r -F";
        case Offer::Directories:
            return " -x -a '(__fish_complete_directories)'";
        case Offer::Choices:
            return fmt::format(" -x -a {}", inFish(fmt::format("{}", fmt::join(option.choices, " "))));
        case Offer::Nothing:
            break;
    }
    return option.isFlag() ? "" : " -x";
}

std::string fishCommand(const Command& command) {
    const std::string condition = fmt::format("-n '__fish_seen_subcommand_from {}'", command.name);
    std::string text = fmt::format("complete -c customstyle -n __fish_use_subcommand -f -a {} -d {}\n", command.name,
                                   inFish(command.summary));
    const Option* const argument = argumentOf(command);
    if (argument == nullptr)
        text += fmt::format("complete -c customstyle {} -f\n", condition);
    else if (argument->offer == Offer::Choices) {
        text += fmt::format("complete -c customstyle {} -f -a {}\n", condition,
                            inFish(fmt::format("{}", fmt::join(argument->choices, " "))));
    }
    forEachOption(command, [&](const Option& option) {
        if (option.isArgument()) return;
        std::string names;
        for (const std::string& flag : flagsOf(option)) {
            names += flag.starts_with("--") ? " -l " + flag.substr(2) : " -s " + flag.substr(1);
        }
        text += fmt::format("complete -c customstyle {}{}{} -d {}\n", condition, names, fishOffer(option),
                            inFish(shortHelp(option)));
    });
    return text + fmt::format("complete -c customstyle {} -l help -d 'Print a help'\n", condition);
}

}  // namespace

std::string bashCompletion(std::span<const Command> commands) {
    std::string text = kBashHead;
    text += fmt::format("{} --help --version\n        return\n    fi\n    case $command:$previous in\n",
                        fmt::join(visibleNames(commands), " "));
    for (const Command& command : commands) {
        if (!command.isHidden) text += bashCommand(command);
    }
    return text + kBashTail;
}

std::string zshCompletion(std::span<const Command> commands) {
    std::string text =
        "#compdef customstyle\n# Completion for customstyle in zsh; made by: customstyle completion zsh\n\n"
        "_customstyle() {\n    local -a commands\n    commands=(\n";
    for (const Command& command : commands) {
        if (!command.isHidden) {
            text += fmt::format("        {}\n", inShell(command.name + ":" + zshText(command.summary)));
        }
    }
    text +=
        "    )\n    if ((CURRENT == 2)); then\n        _describe command commands\n"
        "        _arguments '--help[Print the help]' '--version[Print the version]'\n        return\n    fi\n"
        "    local command=$words[2]\n    shift words\n    ((CURRENT--))\n    case $command in\n";
    for (const Command& command : commands) {
        if (!command.isHidden) text += zshCommand(command);
    }
    return text +
           "    esac\n}\n\nif [[ $zsh_eval_context[-1] == loadautofunc ]]; then\n    _customstyle \"$@\"\n"
           "else\n    compdef _customstyle customstyle\nfi\n";
}

std::string fishCompletion(std::span<const Command> commands) {
    std::string text =
        "# Completion for customstyle in fish; made by: customstyle completion fish\n"
        "complete -c customstyle -n __fish_use_subcommand -l help -d 'Print the help'\n"
        "complete -c customstyle -n __fish_use_subcommand -l version -d 'Print the version'\n";
    for (const Command& command : commands) {
        if (!command.isHidden) text += fishCommand(command);
    }
    return text;
}

}  // namespace customstyle_tool
