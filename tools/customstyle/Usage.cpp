#include "tools/customstyle/Usage.h"

#include <fmt/format.h>

#include <string_view>
#include <vector>

#include "tools/support/PlainText.h"
#include "tools/support/Spelling.h"

namespace customstyle_tool {
namespace {

std::vector<std::string> subcommandNames(const CLI::App& program) {
    std::vector<std::string> names;
    for (const CLI::App* subcommand : program.get_subcommands({})) names.push_back(subcommand->get_name());
    return names;
}

std::vector<std::string> optionNames(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_group().empty()) continue;  // not for people
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    }
    return names;
}

std::string listed(const CLI::App& program) {
    return fmt::format("; the subcommands are {}", fmt::join(subcommandNames(program), ", "));
}

std::string unknownSubcommand(const CLI::App& program, const std::string& word) {
    const auto meant = likelyName(word, subcommandNames(program));
    return fmt::format("there is no subcommand \"{}\"{}", escapedText(word),
                       meant ? didYouMean(meant) : listed(program));
}

std::string unknownOption(const CLI::App& command, const std::string& word) {
    const std::string name = word.substr(0, word.find('='));
    return fmt::format("there is no option \"{}\"{}", escapedText(name),
                       didYouMean(likelyName(name, optionNames(command))));
}

std::string unexpected(const CLI::App& command, const std::string& word) {
    if (word.starts_with('-')) return unknownOption(command, word);
    if (command.get_parent() == nullptr) return unknownSubcommand(command, word);
    return fmt::format("\"{}\" is one argument too many", escapedText(word));
}

// The program, or the subcommand that was chosen.
const CLI::App& chosenIn(const CLI::App& program) {
    const std::vector<CLI::App*> chosen = program.get_subcommands();
    return chosen.empty() ? program : *chosen.front();
}

std::string withHelp(const CLI::App& command, const std::string& problem) {
    const std::string name = command.get_parent() == nullptr ? "" : command.get_name() + " ";
    return fmt::format("customstyle: {}\nRun customstyle {}--help for more.\n", problem, name);
}

}  // namespace

std::string usageProblem(const CLI::App& program, const CLI::ParseError& error) {
    const CLI::App& command = chosenIn(program);
    // Of several problems a word that nobody knows is the likely cause, and a missing argument its consequence.
    for (const CLI::App* each : {&program, &command}) {
        std::vector<std::string> words = each->remaining();
        std::erase(words, "--");
        if (!words.empty()) return withHelp(*each, unexpected(*each, words.front()));
    }
    if (&command == &program) return withHelp(program, "no subcommand is given" + listed(program));
    return withHelp(command, escapedText(error.what()));
}

}  // namespace customstyle_tool
