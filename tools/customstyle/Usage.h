// What is wrong with the words of a call.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace customstyle_tool {

/// Two lines for standard error: what is wrong, with the name that was meant or those that there are, and the help that
/// says more.
/// @param error  what parsing the words has thrown
std::string usageProblem(const CLI::App& program, const CLI::ParseError& error);

}  // namespace customstyle_tool
