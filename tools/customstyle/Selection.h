// What a question is about: style ids, by number or by feature type, and levels.
#pragma once

#include <string>
#include <vector>

#include "tools/customstyle/Command.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

struct Selection {
    std::vector<std::string> ids;
    std::vector<std::string> types;
    std::vector<std::string> levels;
};

/// --id, --type and --level.
void addSelection(std::vector<Option>& options, Selection& selection);

/// The levels that are named, each once; all where none is.
std::vector<int> selectedLevels(const Selection& selection);

/// Whether style ids are named at all; complains if not.
bool isSelected(const Selection& selection, const char* command);

/// The style ids that are named, each once: those of --id, then those that the mapping lists under each --type and that
/// the renderer can ask for. None after a complaint about a type without such ids.
std::vector<unsigned int> selectedStyleIds(const Selection& selection, const StyleStudy& style);

}  // namespace customstyle_tool
