// Reading legend files.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tools/export/Legend.h"
#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// What is wrong with a legend file: a sentence each, with the place and the remedy.
using LegendProblems = std::vector<std::string>;

/// @param file  a legend; docs/export.md describes the format
std::variant<Legend, LegendProblems> readLegend(const SourceFile& file);

/// The names of the built-in legends.
std::vector<std::string> builtInLegendNames();

/// The file of a built-in legend, null if there is no such legend.
std::unique_ptr<SourceFile> builtInLegend(std::string_view name);

}  // namespace customstyle_tool
