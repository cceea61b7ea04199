// The command-line tool: lets a style author and an engine developer ask what the renderer receives.
#include <cstdio>
#include <functional>
#include <new>
#include <system_error>

#include "tools/customstyle/Command.h"
#include "tools/customstyle/CommandLine.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/HelpText.h"

namespace {

using namespace customstyle_tool;

// What fails in the middle is nearly always the output: a full disk.
int runToTheEnd(const std::function<int()>& run) {
    try {
        return withOutputWritten(run());
    } catch (const std::bad_alloc&) {
        return complain("there is not enough memory for this");
    } catch (const std::system_error& error) {
        const char* const what = std::ferror(stdout) != 0 ? "standard output cannot be written: " : "";
        return complain(what + error.code().message());
    }
}

int answer(const std::string& text) {
    return runToTheEnd([&] {
        print(text);
        return kGood;
    });
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): without memory for its options the tool may as well end.
int main(int argumentCount, char** arguments) {
    const std::vector<Command> commands = registeredCommands();
    const Request request = requestOf({arguments + 1, arguments + argumentCount}, commands);
    switch (request.kind) {
        case Request::Kind::Run:
            return runToTheEnd(request.command->run);
        case Request::Kind::Help:
            return answer(request.command == nullptr ? programHelp(commands) : commandHelp(*request.command));
        case Request::Kind::Version:
            return answer("customstyle " CUSTOMSTYLE_VERSION "\n");
        case Request::Kind::Problem:
            std::fputs(request.problem.c_str(), stderr);
            break;
    }
    return kMisuse;
}
