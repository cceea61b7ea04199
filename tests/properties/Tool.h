// The program, run within this process.
#pragma once

#include <string>
#include <vector>

#include "tests/properties/Trial.h"

namespace customstyle_test::properties {

struct Run {
    int status;
    std::string out;
    std::string err;
};

/// Runs the program as a shell would.
Run runTool(const std::vector<std::string>& arguments);

/// Writes a file for the program to read, and names it. The same name is written again for the next trial.
std::string fileWith(const std::string& name, const std::string& content);

/// "--mapping" with the trial's map, or nothing.
std::vector<std::string> mappingArguments(const Trial& trial);

}  // namespace customstyle_test::properties
