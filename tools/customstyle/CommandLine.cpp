#include "tools/customstyle/CommandLine.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "tools/customstyle/Arguments.h"
#include "tools/support/PlainText.h"
#include "tools/support/Spelling.h"

namespace customstyle_tool {
namespace {

std::string longNameOf(const Option& option) {
    const std::size_t dashes = option.names.find("--");
    return option.isArgument() || dashes == std::string::npos ? option.names.substr(0, option.names.find(','))
                                                              : option.names.substr(dashes);
}

bool isNumberWord(const std::string& word) {
    return !word.empty() && word.find_first_not_of("0123456789,-") == std::string::npos && word != "-" && word != "--";
}

// Whether a word after an option of numbers is one more value of it.
bool belongsTo(const Option* option, const std::string& word) {
    return option != nullptr && (isNumberWord(word) || option->problem(word).empty());
}

// The option that a word names, if any.
const Option* namedBy(const std::string& word, const Command& command) {
    const auto names = [&](const Option& option) {
        return ("," + option.names + ",").find("," + word + ",") != std::string::npos;
    };
    const auto found = word.starts_with('-') ? std::ranges::find_if(command.options, names) : command.options.end();
    return found == command.options.end() ? nullptr : &*found;
}

// "--id 1 2 3 STYLE" means "--id=1 --id=2 --id=3 STYLE": only numbers belong to such an option.
std::vector<std::string> withJoinedNumbers(const std::vector<std::string>& words, const Command& command) {
    std::vector<std::string> joined;
    const Option* current = nullptr;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (belongsTo(current, words[i])) {
            joined.push_back(longNameOf(*current) + "=" + words[i]);
            continue;
        }
        const Option* const named = namedBy(words[i], command);
        current = named != nullptr && named->takesNumbers ? named : nullptr;
        const bool isFollowed = i + 1 < words.size() && belongsTo(current, words[i + 1]);
        if (!isFollowed) joined.push_back(words[i]);
    }
    return joined;
}

// One subcommand and its words, read by CLI11.
class CommandReader {
public:
    explicit CommandReader(const Command& command) : m_command(command) {
        m_app.set_help_flag("-h,--help");
        m_app.allow_extras();
        for (const Option& option : command.options) m_options.push_back(bind(option));
    }

    Request read(const std::vector<std::string>& words) {
        std::vector<std::string> reversed = withJoinedNumbers(words, m_command);
        std::ranges::reverse(reversed);
        try {
            m_app.parse(std::move(reversed));
        } catch (const CLI::CallForHelp&) {
            return {.kind = Request::Kind::Help, .command = &m_command};
        } catch (const CLI::ParseError& error) {
            // An unknown word is the likely cause, and what the parser misses is its consequence.
            const std::string text = unexpectedWordText();
            return problem(text.empty() ? escapedText(error.what()) : text);
        }
        const std::string text = problemText();
        return text.empty() ? Request{.kind = Request::Kind::Run, .command = &m_command} : problem(text);
    }

private:
    CLI::Option* bind(const Option& option) {
        CLI::Option* const bound = std::visit([&](auto* target) { return add(option, *target); }, option.target);
        if (!option.value.empty()) bound->type_name(option.value);
        return bound;
    }

    CLI::Option* add(const Option& option, bool& target) { return m_app.add_flag(option.names, target); }

    template <typename Value>
    CLI::Option* add(const Option& option, Value& target) {
        CLI::Option* const bound = m_app.add_option(option.names, target);
        if (option.isRepeatable() && !option.isArgument()) bound->allow_extra_args(false);
        return bound;
    }

    Request problem(const std::string& text) const {
        const std::string lines =
            fmt::format("customstyle: {}\nRun customstyle {} --help for more.\n", text, m_command.name);
        return {.kind = Request::Kind::Problem, .command = &m_command, .problem = lines};
    }

    std::string problemText() const {
        if (std::string text = unexpectedWordText(); !text.empty()) return text;
        for (std::size_t i = 0; i < m_options.size(); ++i) {
            std::string text = problemOf(m_command.options[i], *m_options[i]);
            if (!text.empty()) return text;
        }
        return {};
    }

    std::string problemOf(const Option& option, const CLI::Option& bound) const {
        if (bound.count() == 0) {
            if (!option.isRequired) return "";
            const std::string choices = option.choices.empty() ? "" : fmt::format(": {}", eitherOf(option.choices));
            return fmt::format("{} needs {}{}", m_command.name, longNameOf(option), choices);
        }
        if (option.isFlag()) return {};
        for (const std::string& value : bound.results()) {
            if (value.empty() && !option.isArgument()) return fmt::format("{} needs a value", longNameOf(option));
            const std::string text = option.problem ? option.problem(value) : "";
            if (!text.empty()) return fmt::format("{}: {}", longNameOf(option), escapedText(text));
        }
        return {};
    }

    // Empty where there is none. "--" ends the options, and is no word of its own.
    std::string unexpectedWordText() const {
        std::vector<std::string> words = m_app.remaining();
        const bool isArgument = !words.empty() && words.front() == "--";
        std::erase(words, "--");
        if (words.empty()) return {};
        const std::string& word = words.front();
        if (isArgument || !word.starts_with('-')) {
            return fmt::format("\"{}\" is one argument too many", escapedText(word));
        }
        const std::string name = word.substr(0, word.find('='));
        return fmt::format("unknown option \"{}\"{}", escapedText(name), didYouMean(likelyName(name, optionNames())));
    }

    std::vector<std::string> optionNames() const {
        std::vector<std::string> names = {"--help"};
        for (const Option& option : m_command.options) {
            const std::size_t dashes = option.names.find("--");
            if (!option.isHidden && dashes != std::string::npos) names.push_back(option.names.substr(dashes));
        }
        return names;
    }

    const Command& m_command;
    CLI::App m_app;
    std::vector<CLI::Option*> m_options;
};

Request programProblem(const std::string& text) {
    return {.kind = Request::Kind::Problem,
            .problem = fmt::format("customstyle: {}\nRun customstyle --help for more.\n", text)};
}

std::string listed(std::span<const Command> commands) {
    return fmt::format("; the commands are {}", fmt::join(visibleNames(commands), ", "));
}

Request unknownFirstWord(const std::string& word, std::span<const Command> commands) {
    if (word.starts_with('-')) {
        const std::vector<std::string> names = {"--help", "--version"};
        return programProblem(
            fmt::format("unknown option \"{}\"{}", escapedText(word), didYouMean(likelyName(word, names))));
    }
    const auto meant = likelyName(word, visibleNames(commands));
    return programProblem(
        fmt::format("unknown command \"{}\"{}", escapedText(word), meant ? didYouMean(meant) : listed(commands)));
}

}  // namespace

Request requestOf(std::vector<std::string> words, std::span<const Command> commands) {
    if (words.empty()) return programProblem("no command is given" + listed(commands));
    const std::string first = words.front();
    words.erase(words.begin());
    if (first == "--help" || first == "-h") return {.kind = Request::Kind::Help};
    if (first == "--version") return {.kind = Request::Kind::Version};
    const auto command = std::ranges::find(commands, first, &Command::name);
    return command == commands.end() ? unknownFirstWord(first, commands) : CommandReader(*command).read(words);
}

}  // namespace customstyle_tool
