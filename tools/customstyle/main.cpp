// The command-line tool: lets a style author and an engine developer ask what the renderer receives.
#include "tools/customstyle/Program.h"

// NOLINTNEXTLINE(bugprone-exception-escape): without memory for its options the tool may as well end.
int main(int argumentCount, char** arguments) {
    return customstyle_tool::runProgram({arguments + 1, arguments + argumentCount});
}
