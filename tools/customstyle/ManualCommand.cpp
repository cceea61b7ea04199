// customstyle manual: the manual pages and completions, for the build.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>

#include "tools/customstyle/Completion.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Manual.h"
#include "tools/host/AtomicFile.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

struct ManualArguments {
    std::string page = "customstyle";
    std::string directory;
};

// The pages are "customstyle" and "customstyle-NAME".
std::string pageNamed(const std::string& page, const std::vector<Command>& commands) {
    if (page == "customstyle") return programManual(commands);
    const auto command =
        std::ranges::find_if(commands, [&](const Command& each) { return "customstyle-" + each.name == page; });
    return command == commands.end() ? "" : commandManual(*command);
}

int printPage(const std::string& page) {
    const std::string text = pageNamed(page, registeredCommands());
    if (text.empty()) return complain(fmt::format("unknown manual page \"{}\"", page));
    print(text);
    return kGood;
}

int write(const fs::path& path, const std::string& text) {
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    if (error) return complain(fmt::format("{}: {}", path.parent_path().string(), error.message()));
    const std::optional<std::string> problem = writeWhole(path.string(), text);
    return problem ? complain(*problem) : kGood;
}

// As they are installed below a folder like /usr/share.
int writeAll(const fs::path& share) {
    const std::vector<Command> commands = registeredCommands();
    int status = write(share / "man/man1/customstyle.1", programManual(commands));
    for (const Command& each : commands) {
        if (each.isHidden) continue;
        status =
            std::max(status, write(share / fmt::format("man/man1/customstyle-{}.1", each.name), commandManual(each)));
    }
    status = std::max(status, write(share / "bash-completion/completions/customstyle", bashCompletion(commands)));
    status = std::max(status, write(share / "zsh/site-functions/_customstyle", zshCompletion(commands)));
    return std::max(status, write(share / "fish/vendor_completions.d/customstyle.fish", fishCompletion(commands)));
}

Command manualCommand() {
    const auto arguments = std::make_shared<ManualArguments>();
    return {.name = "manual",
            .purpose = Purpose::SetUp,
            .summary = "Print a manual page in mdoc, or write all pages and completions",
            .options = {{.names = "PAGE", .help = "As in man PAGE", .target = &arguments->page},
                        {.names = "--write",
                         .value = "DIR",
                         .help = "Write all pages and completions into this folder",
                         .target = &arguments->directory}},
            .statuses = {{0, "Everything is written"}, {2, "Wrong usage, or a file that cannot be written"}},
            .run =
                [arguments] {
                    return arguments->directory.empty() ? printPage(arguments->page) : writeAll(arguments->directory);
                },
            .isHidden = true};
}

const Registration manualRegistration(manualCommand);

}  // namespace
}  // namespace customstyle_tool
