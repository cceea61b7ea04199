// The names that styles are written with, as lists.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tools/study/Mapping.h"

namespace customstyle_tool {

/// A list of names, each with what belongs to it.
struct NameList {
    std::string what;                  ///< "types"
    std::vector<std::string> columns;  ///< names of the members; the first is the name itself
    std::vector<std::vector<std::string>> rows;
    std::vector<std::vector<unsigned int>> styleIds;  ///< of each row, for types
};

/// @param what  "types", "elements", "stylers" or "codes"
NameList namesOf(const std::string& what, const Mapping& mapping);

std::string nameListText(const NameList& list);
std::string nameListJson(const NameList& list);

}  // namespace customstyle_tool
