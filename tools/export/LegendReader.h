// Reading legend files.
#pragma once

#include <optional>
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

/// The names of the legends that come along.
std::vector<std::string> builtInLegendNames();

/// The text of a legend that comes along, none where there is no such legend.
std::optional<std::string_view> builtInLegendText(std::string_view name);

}  // namespace customstyle_tool
