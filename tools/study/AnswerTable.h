// Answers as rows of a table for people.
#pragma once

#include <string>

#include "customstyle/CustomConfig.h"
#include "tools/study/Answers.h"

namespace customstyle_tool {

/// "13 highway", or "-" for none.
std::string featureTypeText(const _orvik_framework::CustomConfig& config, int featureType);

/// The line above the rows.
std::string answerHeading();

/// One row: the style id, the levels as the caller names them, the feature type, and all that applies.
std::string answerRow(const _orvik_framework::CustomConfig& config, unsigned int styleId, const std::string& levels,
                      const Answer& answer);

}  // namespace customstyle_tool
