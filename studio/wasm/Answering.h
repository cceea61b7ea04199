// The requests of a page, answered by the tools' libraries.
#pragma once

#include <string>
#include <string_view>

namespace customstyle_studio {

/// Answers one request. Both are JSON; README.md beside this file describes them.
/// @return the answer, or {"error": "..."} for a request that cannot be answered
std::string answerTo(std::string_view request);

}  // namespace customstyle_studio
