#include "tools/customstyle/Program.h"

#include <cstdio>
#include <functional>
#include <new>
#include <system_error>
#include <utility>

#include "tools/customstyle/Command.h"
#include "tools/customstyle/CommandLine.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/HelpText.h"

namespace customstyle_tool {
namespace {

// What fails in the middle is nearly always the output: a full disk.
int runToTheEnd(const std::function<int()>& run) {
    try {
        return withOutputWritten(run());
    } catch (const std::bad_alloc&) {
        return complain("not enough memory");
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

int runProgram(std::vector<std::string> words) {
    const std::vector<Command> commands = registeredCommands();
    const Request request = requestOf(std::move(words), commands);
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

}  // namespace customstyle_tool
