// The outcome of expectations for build servers.
#pragma once

#include <span>
#include <string>

#include "tools/expectations/ExpectationCheck.h"

namespace customstyle_tool {

/// A test suite as JUnit writes it: a test case for each line of the file.
/// @param lines     the expectations as the file has them
/// @param failures  of expectations with the offsets of these lines
std::string junitReport(std::span<const Expectation> lines, std::span<const ExpectationFailure> failures,
                        const SourceFile& file, const StyleStudy& style);

}  // namespace customstyle_tool
