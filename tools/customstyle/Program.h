// The whole program, which tests run within their own process.
#pragma once

#include <string>
#include <vector>

namespace customstyle_tool {

/// Does what the words of a call ask for. Output goes to standard output, complaints go to standard error.
/// @param words  without the program's name
/// @return the exit status
int runProgram(std::vector<std::string> words);

}  // namespace customstyle_tool
