// What a style's answers are, as expectations.
#pragma once

#include <string>
#include <vector>

#include "tools/expectations/Expectations.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// Expectations that state all of a style's answers for a feature type, or a style id, at levels. They hold for another
/// style if it has the same answers, and for no other one. The icon flag inside the record, which no expectation can
/// name, is left out; the answer about the icon is included.
///
/// They are about the whole feature type where all of its style ids have the same answers, else about each style id.
///
/// @param scope  the subject and levels; its offset and text are copied to the results
std::vector<Expectation> recorded(const Expectation& scope, const StyleStudy& style);

/// A file of expectations that states all answers of a style for all style ids of its mapping.
std::string recording(const StyleStudy& style);

}  // namespace customstyle_tool
