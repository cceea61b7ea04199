// What export and import have in common: a legend, a style to write, and what is lost on the way.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/customstyle/Command.h"
#include "tools/export/ExportTexts.h"

namespace customstyle_tool {

struct ConversionArguments {
    std::string legend = "openmaptiles";
    std::string output = "-";  ///< - is standard output
    std::optional<std::string> report;
    std::string zoomOffset = "1";  ///< one digit
    bool quiet = false;
};

/// --legend LEGEND, --output OUT and --report FILE
void addLegendAndOutputs(std::vector<Option>& options, ConversionArguments& arguments);

/// --zoom-offset N
Option zoomOffsetOption(ConversionArguments& arguments);

/// --quiet
Option quietOption(ConversionArguments& arguments);

/// The codes of losses for the manual.
Glossary lossGlossary(std::span<const LossRow> rows);

/// Reads a built-in legend, or a file; none after a complaint.
std::optional<Legend> legendOrComplain(const std::string& name);

/// Whether the style and the report have one target.
bool haveOneTarget(const ConversionArguments& arguments);

/// Writes the style and the report where the arguments want them, and the losses to standard error.
/// @param inputs  files that must not be overwritten
/// @return the exit status
int writeConversion(const ConversionTexts& conversion, const ConversionArguments& arguments,
                    std::vector<std::string> inputs);

}  // namespace customstyle_tool
