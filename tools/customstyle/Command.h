// What a subcommand is.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace customstyle_tool {

/// Exit statuses. The tools judge files, so "the file is not good" is not an error of the tool.
inline constexpr int kGood = 0;
inline constexpr int kFinding = 1;
inline constexpr int kMisuse = 2;

/// A subcommand: knows after parsing whether it was chosen, and runs.
struct Command {
    CLI::App* options;
    std::function<int()> run;  ///< prints what there is to print and answers the exit status
};

// One for each subcommand: adds its name, help and options to the program.
Command checkCommand(CLI::App& program);
Command diffCommand(CLI::App& program);
Command dumpCommand(CLI::App& program);
Command explainCommand(CLI::App& program);
Command formatCommand(CLI::App& program);
Command minifyCommand(CLI::App& program);
Command queryCommand(CLI::App& program);
Command schemaCommand(CLI::App& program);
Command testCommand(CLI::App& program);

}  // namespace customstyle_tool
