// The members of rules that are remarks of their author.
#pragma once

#include <string>
#include <string_view>

namespace customstyle_tool {

/// Whether a member is a remark, by its name in any letter case or by how the name starts. The component ignores
/// remarks, so they raise no finding.
bool isRemark(std::string_view memberName);

/// The same as a regular expression for a JSON Schema.
std::string remarkPattern();

}  // namespace customstyle_tool
