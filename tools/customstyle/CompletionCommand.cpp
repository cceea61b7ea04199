// customstyle completion: what a shell needs to complete calls.
#include <memory>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Completion.h"
#include "tools/customstyle/Console.h"

namespace customstyle_tool {
namespace {

int printCompletion(const std::string& shell) {
    const std::vector<Command> commands = registeredCommands();
    print(shell == "bash"  ? bashCompletion(commands)
          : shell == "zsh" ? zshCompletion(commands)
                           : fishCompletion(commands));
    return kGood;
}

Command completionCommand() {
    const auto shell = std::make_shared<std::string>();
    Option option = choiceOption("SHELL", "", "bash, zsh or fish", shell.get(), {"bash", "zsh", "fish"});
    option.problem = [shells = option.choices](const std::string& word) {
        return word == "bash" || word == "zsh" || word == "fish" ? "" : unknownWord("shell", word, shells);
    };
    option.isRequired = true;
    return {.name = "completion",
            .purpose = Purpose::SetUp,
            .summary = "Print a script that completes calls in your shell",
            .description = {"An installed customstyle has these scripts in place already."},
            .options = {option},
            .statuses = {{0, "The script is printed"}, {2, "Wrong usage"}},
            .examples = {{"in bash, in .bashrc", "eval \"$(customstyle completion bash)\""},
                         {"in zsh, in .zshrc, after compinit", "eval \"$(customstyle completion zsh)\""},
                         {"in fish, in config.fish", "customstyle completion fish | source"}},
            .run = [shell] { return printCompletion(*shell); }};
}

const Registration completionRegistration(completionCommand);

}  // namespace
}  // namespace customstyle_tool
