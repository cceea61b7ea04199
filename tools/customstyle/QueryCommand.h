// customstyle query: what the renderer receives for style ids at levels.
#pragma once

#include <cstdio>
#include <vector>

#include "CustomConfig.h"

namespace customstyle_tool {

/// Prints the answers for people: one answer field by field, several as a table.
void printAnswers(std::FILE* out, const _orvik_framework::CustomConfig& config,
                  const std::vector<unsigned int>& styleIds, const std::vector<int>& levels);

}  // namespace customstyle_tool
