// customstyle dump: what the renderer receives for every style id at every level.
#pragma once

#include <cstdio>

#include "CustomConfig.h"

namespace customstyle_tool {

/// A table for people: a row for each style id and answer, levels with equal answers joined.
void printTable(std::FILE* out, const _orvik_framework::CustomConfig& config);

/// The same as one JSON object, with a line for each style id and answer, those without a custom style included.
void printJson(std::FILE* out, const _orvik_framework::CustomConfig& config);

}  // namespace customstyle_tool
