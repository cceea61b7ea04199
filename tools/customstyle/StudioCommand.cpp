// customstyle studio: the studio's page on this machine, with the style that is edited.
#include <fcntl.h>
#include <fmt/format.h>
#include <spawn.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/host/Files.h"
#include "tools/host/LoadedMap.h"
#include "tools/server/StudioService.h"
#include "tools/support/Numbers.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

constexpr std::uint16_t kFirstPort = 8380;
constexpr std::uint16_t kLastPort = 8399;
constexpr long kTickNanoseconds = 100'000'000;

struct StudioArguments : MappingArguments {
    std::optional<std::string> style;
    std::optional<std::string> port;
    std::optional<std::string> page;
    std::optional<std::string> site;
    bool open = false;
};

std::string problemOfPort(const std::string& word) {
    return numberIn<std::uint16_t>(word) ? ""
                                         : fmt::format("\"{}\" is not a port; write a number from 0 to 65535", word);
}

// Why a style cannot be edited here; nothing if it can.
std::optional<ReadFailure> problemOfStyle(const std::string& path) {
    if (path == "-") return ReadFailure{"-: standard input cannot be watched; give the path of a style file"};
    if (auto problem = problemOfFile(path, "style file")) return problem;
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error)) return {};
    return ReadFailure{path + ": is not a regular file; give the path of a style file"};
}

std::optional<ReadFailure> problemOfFiles(const StudioArguments& arguments) {
    if (arguments.style) {
        if (auto problem = problemOfStyle(*arguments.style)) return problem;
    }
    return arguments.mappingDirectory ? problemOfMappingDirectory(*arguments.mappingDirectory) : std::nullopt;
}

// Signals that end the program; they stay pending in all threads until they are fetched.
sigset_t heldSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int each : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, each);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

// Starts a program that runs on its own, without our signals, input and output.
bool isStarted(const char* program, const std::string& argument) {
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int each : {0, 1, 2}) posix_spawn_file_actions_addopen(&actions, each, "/dev/null", O_RDWR, 0);
    std::string name = program;
    std::string word = argument;
    char* const words[] = {name.data(), word.data(), nullptr};
    pid_t process = 0;
    const int error = posix_spawnp(&process, program, &actions, &attributes, words, environ);
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    return error == 0;
}

bool hasDesktop() {
    const auto isSet = [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("BROWSER");
}

void openBrowser(const std::string& address) {
    std::signal(SIGCHLD, SIG_IGN);  // nothing waits for the browser
    if (hasDesktop() && isStarted("xdg-open", address)) return;
    complain(fmt::format("no browser could be opened here; open {} yourself", address));
}

using Started = std::variant<std::unique_ptr<StudioService>, int>;

Started start(const StudioFiles& files, const std::optional<std::string>& port) {
    if (port) return StudioService::start(files, *numberIn<std::uint16_t>(*port));
    Started started = EADDRINUSE;
    for (std::uint16_t each = kFirstPort; each <= kLastPort; ++each) {
        started = StudioService::start(files, each);
        const int* const error = std::get_if<int>(&started);
        if (error == nullptr || *error != EADDRINUSE) break;
    }
    return started;
}

int complainOfPort(const StudioArguments& arguments, int error) {
    const std::string ports =
        arguments.port ? "port " + *arguments.port : fmt::format("the ports {} to {}", kFirstPort, kLastPort);
    return complain(fmt::format("cannot listen on {} of 127.0.0.1: {}; choose another with --port, or 0 for any", ports,
                                std::strerror(error)));
}

void serveUntilEnded(StudioService& service, const sigset_t& signals) {
    const timespec pause{.tv_sec = 0, .tv_nsec = kTickNanoseconds};
    while (sigtimedwait(&signals, nullptr, &pause) < 0) service.tick();
}

int serve(StudioArguments arguments, PageFolder page) {
    if (!findMapping(arguments, {arguments.style.value_or(kHere)})) return kMisuse;
    if (const auto problem = problemOfFiles(arguments)) return complainOf(*problem);
    StudioFiles files{.page = std::move(page), .style = arguments.style};
    if (arguments.mappingDirectory) files.mapping = mappingFileIn(*arguments.mappingDirectory);
    const sigset_t signals = heldSignals();
    const Started started = start(files, arguments.port);
    if (const int* error = std::get_if<int>(&started)) return complainOfPort(arguments, *error);
    StudioService& service = *std::get<0>(started);
    const std::string shown = arguments.style ? escapedText(*arguments.style) : "the studio";
    print(fmt::format("{} shows {}; Ctrl+C stops it\n", service.address(), shown));
    std::fflush(stdout);
    if (arguments.open) openBrowser(service.address());
    serveUntilEnded(service, signals);
    return kGood;
}

int writeSite(const StudioArguments& arguments, const PageFolder& page) {
    if (arguments.style || arguments.mappingDirectory || arguments.configuration || arguments.port || arguments.open) {
        return complain("--build-site writes the page only; remove STYLE, --mapping, --config, --port and --open");
    }
    const std::optional<std::string> problem = page.copyTo(*arguments.site);
    return problem ? complain(*problem) : kGood;
}

int studio(const StudioArguments& arguments) {
    auto page = PageFolder::find(arguments.page);
    if (const auto* failure = std::get_if<ReadFailure>(&page)) return complainOf(*failure);
    auto& folder = std::get<PageFolder>(page);
    return arguments.site ? writeSite(arguments, folder) : serve(arguments, std::move(folder));
}

std::vector<Option> optionsOf(StudioArguments& arguments) {
    std::vector<Option> options{
        {.names = "STYLE",
         .help = "Style file to edit; without it, an example",
         .target = &arguments.style,
         .offer = Offer::Files},
        {.names = "--mapping",
         .value = "DIR",
         .help = "Directory of the mapping file CustomIndex; without a mapping, the one of the example map",
         .target = &arguments.mappingDirectory,
         .offer = Offer::Directories}};
    addSettingsOptions(options, arguments.configuration, arguments.withoutConfiguration, "the mapping");
    options.insert(options.end(),
                   {{.names = "--port",
                     .value = "N",
                     .help = "Port of 127.0.0.1, 0 for any; without it, the first that is free from 8380 to 8399",
                     .target = &arguments.port,
                     .problem = problemOfPort},
                    {.names = "--open", .help = "Open the page in the browser", .target = &arguments.open},
                    {.names = "--page",
                     .value = "DIR",
                     .help = "Folder of the built page; without it, where it is installed, or build/studio",
                     .target = &arguments.page,
                     .offer = Offer::Directories},
                    {.names = "--build-site",
                     .value = "DIR",
                     .help = "Do not serve; write the page into this folder, for any web host",
                     .target = &arguments.site,
                     .offer = Offer::Directories}});
    return options;
}

Command studioCommand() {
    const auto arguments = std::make_shared<StudioArguments>();
    return {.name = "studio",
            .purpose = Purpose::Write,
            .summary = "Edit a style beside a city map, in the browser",
            .description = {"Serves the studio's page to this machine only, and prints its address. The page shows the "
                            "file on disk, and follows it when another editor writes it. Save writes the file as a "
                            "whole or not at all; if both have changed it, the page asks.",
                            "The server answers the page only: it refuses other hosts, and pages of other sites. Other "
                            "programs on this machine can read and save the style."},
            .options = optionsOf(*arguments),
            .statuses = {{0, "The server was stopped, or the site is written"},
                         {2, "Wrong usage, a file that cannot be read or written, or a port that is taken"}},
            .examples = {{"edit a style", "customstyle studio night.json --mapping map --open"},
                         {"the page for a web host", "customstyle studio --build-site site"}},
            .run = [arguments] { return studio(*arguments); }};
}

const Registration studioRegistration(studioCommand);

}  // namespace
}  // namespace customstyle_tool
