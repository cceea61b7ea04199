// Texts that were checked, and findings as tests write them.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tools/check/Finding.h"
#include "tools/check/Report.h"

namespace customstyle_test {

/// Checks a style text on every map, or over a mapping.
customstyle_tool::CheckedFile checkedStyle(std::string_view text, std::string_view mapping = {}, bool effects = false);

/// Checks a mapping text, with what is shown on request.
customstyle_tool::CheckedFile checkedMapping(std::string_view text);

/// "code: the text at its position", in the order of the findings.
std::vector<std::string> codesWithPlaces(const customstyle_tool::CheckedFile& checked);

/// Those of one code: "message".
std::vector<std::string> messagesOf(const customstyle_tool::CheckedFile& checked, customstyle_tool::Code code);

/// The content of a file of the examples or the documentation.
std::string contentOf(const std::string& path);

/// A rule as JSON.
std::string ruleText(std::string_view featureType, std::string_view elementType, std::string_view stylers);

}  // namespace customstyle_test
